#pragma once

#include "base/Host.h"

#include <QObject>
#include <qqmlregistration.h>

class InstalledEmulators;
class LibraryStore;
class Preferences;
class Translator;

/// What stands between the user's choice of a game and its start, in the user's words. A text that is empty is not
/// shown. Everything that it is given outlives it.
class LaunchQuestions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the window")
    Q_PROPERTY(QString controllerTitle READ controllerTitle NOTIFY controllerChanged)
    Q_PROPERTY(QString controllerText READ controllerText NOTIFY controllerChanged)
    Q_PROPERTY(QString controllerEmulator READ controllerEmulator NOTIFY controllerChanged)
    Q_PROPERTY(QString setupText READ setupText NOTIFY setupChanged)
    Q_PROPERTY(QString setupEmulator READ setupEmulator NOTIFY setupChanged)
    Q_PROPERTY(bool setupInstalled READ setupInstalled NOTIFY setupChanged)
public:
    LaunchQuestions(LibraryStore &library, const InstalledEmulators &emulators, Preferences &preferences,
                    const Translator &translator, Host host, QObject *parent = nullptr);

    QString controllerTitle() const; ///< the controller is to be set up in an emulator before the game
    QString controllerText() const; ///< how, in one line
    QString controllerEmulator() const;
    QString setupText() const; ///< an emulator must be installed or set up before the game can start
    QString setupEmulator() const;
    bool setupInstalled() const;

    Q_INVOKABLE void play(); ///< the game that waits, with the controller as it is
    Q_INVOKABLE void playAndStopAsking();
    Q_INVOKABLE void dismissController(); ///< the game is not started
    Q_INVOKABLE void dismissSetup();

signals:
    void controllerChanged();
    void setupChanged();

private:
    LibraryStore &m_library;
    const InstalledEmulators &m_emulators;
    Preferences &m_preferences;
    const Translator &m_translator;
    const Host m_host;
};
