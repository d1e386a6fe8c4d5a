#pragma once

#include "app/AppTab.h"

#include <QObject>
#include <QString>

/// What the screens share: where the user is. Created once at launch; main thread only. Nothing of it is stored.
class AppState : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString tab READ tabName WRITE setTabName NOTIFY tabChanged)
    Q_PROPERTY(QString selectedConsole MEMBER m_selectedConsole NOTIFY selectedConsoleChanged)
    Q_PROPERTY(QString glow MEMBER m_glow NOTIFY glowChanged)
    Q_PROPERTY(QString search MEMBER m_search NOTIFY searchChanged)
    Q_PROPERTY(QString detailGame MEMBER m_detailGame NOTIFY detailGameChanged)
    Q_PROPERTY(bool controllerTest MEMBER m_controllerTest NOTIFY controllerTestChanged)
    Q_PROPERTY(bool onboarding MEMBER m_onboarding NOTIFY onboardingChanged)
    Q_PROPERTY(bool bigPicture MEMBER m_bigPicture NOTIFY bigPictureChanged)
    Q_PROPERTY(bool quitting MEMBER m_quitting NOTIFY quittingChanged)
    Q_PROPERTY(bool settings MEMBER m_settings NOTIFY settingsChanged)
    Q_PROPERTY(bool report MEMBER m_report NOTIFY reportChanged)
    Q_PROPERTY(QString language MEMBER m_language NOTIFY languageChanged)
public:
    using QObject::QObject;

    AppTab tab() const { return m_tab; }
    void setTab(AppTab tab); ///< closes an open game or console page of the tab that is left
    QString tabName() const { return name(m_tab); }
    void setTabName(const QString &tab); ///< ignored when it names no tab
    Q_INVOKABLE void stepTab(int by); ///< to a neighbour; stays at the ends

signals:
    void tabChanged();
    void selectedConsoleChanged();
    void glowChanged();
    void searchChanged();
    void detailGameChanged();
    void controllerTestChanged();
    void onboardingChanged();
    void bigPictureChanged();
    void quittingChanged();
    void settingsChanged();
    void reportChanged();
    void languageChanged();

private:
    AppTab m_tab = AppTab::home;
    QString m_selectedConsole; ///< console identifier; empty: the catalog
    QString m_glow; ///< identifier of what is highlighted for a moment
    QString m_search;
    QString m_detailGame; ///< identifier of the game whose page is open; empty: none
    bool m_controllerTest = false;
    bool m_onboarding = false;
    bool m_bigPicture = false;
    bool m_quitting = false;
    bool m_settings = false;
    bool m_report = false;
    QString m_language; ///< code of the language in use
};
