#pragma once

#include <QObject>
#include <QVariantList>
#include <qqmlregistration.h>

class Preferences;
class Translator;

/// What holds for all games that have no wish of their own, and where they are shown. Each change is kept at once.
class PlaySettings : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the window")
    Q_PROPERTY(QString quality READ quality WRITE setQuality NOTIFY changed)
    Q_PROPERTY(bool fps60 READ fps60 WRITE setFps60 NOTIFY changed)
    Q_PROPERTY(bool setsUpController READ setsUpController WRITE setSetsUpController NOTIFY changed)
    Q_PROPERTY(QString screen READ screen WRITE setScreen NOTIFY changed)
    Q_PROPERTY(QVariantList screens READ screens NOTIFY screensChanged)
public:
    PlaySettings(Preferences &preferences, const Translator &translator, QObject *parent = nullptr);

    QString quality() const; ///< "minimum", "medium" or "maximum"
    void setQuality(const QString &name); ///< another name is ignored
    bool fps60() const; ///< of games whose settings were never changed
    void setFps60(bool wanted);
    bool setsUpController() const; ///< in emulators where Velko can, before each game
    void setSetsUpController(bool allowed);
    QString screen() const; ///< the output's name; empty: where the user is
    void setScreen(const QString &name);
    /// The choices for `screen`, as { value, text }: none, those that are connected, and the chosen one in any case.
    QVariantList screens() const;

signals:
    void changed();
    void screensChanged();

private:
    Preferences &m_preferences;
    const Translator &m_translator;
};
