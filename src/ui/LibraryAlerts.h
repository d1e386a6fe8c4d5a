#pragma once

#include "library/LibraryStore.h"

#include <QObject>
#include <QUrl>
#include <qqmlregistration.h>

class Translator;

/// What the library has to tell or to ask, in the user's words. A text that is empty is not shown.
class LibraryAlerts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the library")
    Q_PROPERTY(QString setAsideText READ setAsideText NOTIFY setAsideChanged)
    Q_PROPERTY(QString restoreText READ restoreText NOTIFY setAsideChanged)
    Q_PROPERTY(QString errorText READ errorText NOTIFY errorChanged)
    Q_PROPERTY(QString missingText READ missingText NOTIFY missingChanged)
    Q_PROPERTY(QString scanText READ scanText NOTIFY scanChanged)
    Q_PROPERTY(QString reportText READ reportText NOTIFY scanChanged)
public:
    LibraryAlerts(LibraryStore &library, const Translator &translator, QObject *parent = nullptr);

    QString setAsideText() const; ///< the library file could not be read; where it lies now
    QString restoreText() const; ///< the button that takes the newest good copy; empty: there is none
    QString errorText() const; ///< of the library's last error
    QString missingText() const;
    QString scanText() const; ///< while a scan is under way
    QString reportText() const; ///< after it

    /// Folders are remembered and looked through, files are added. False: none of it lies on this computer.
    Q_INVOKABLE bool addDropped(const QList<QUrl> &addresses);
    Q_INVOKABLE void keepGoing(); ///< the card about the unreadable file was read
    Q_INVOKABLE void dismissError();
    Q_INVOKABLE void dismissReport();
    Q_INVOKABLE void removeMissing(); ///< the game whose file is gone leaves the library

signals:
    void setAsideChanged();
    void errorChanged();
    void missingChanged();
    void scanChanged();

private:
    LibraryStore &m_library;
    const Translator &m_translator;
    bool m_setAsideRead = false;
    bool m_reportRead = false;
};
