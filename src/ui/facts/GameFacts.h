#pragma once

#include "catalog/Console.h"
#include "library/LibraryStore.h"
#include "platform/Clock.h"
#include "ui/facts/GameOptions.h"

#include <QObject>
#include <QVariantList>
#include <qqmlregistration.h>

class InstalledEmulators;
class Tasks;
class Translator;

/// What a screen says about one game, in the user's words, and what the user can do with it. Everything that it is
/// given outlives it.
class GameFacts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the library")
    Q_PROPERTY(QString gameID READ gameID WRITE setGameID NOTIFY changed)
    Q_PROPERTY(bool exists READ exists NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString cover READ cover NOTIFY changed)
    Q_PROPERTY(QString consoleID READ consoleID NOTIFY changed)
    Q_PROPERTY(QString consoleName READ consoleName NOTIFY changed)
    Q_PROPERTY(QString consoleShort READ consoleShort NOTIFY changed)
    Q_PROPERTY(qreal ratio READ ratio NOTIFY changed)
    Q_PROPERTY(bool favorite READ favorite NOTIFY changed)
    Q_PROPERTY(QString status READ status NOTIFY changed)
    Q_PROPERTY(QString statusText READ statusText NOTIFY changed)
    Q_PROPERTY(QString statusDot READ statusDot NOTIFY changed)
    Q_PROPERTY(QString playedText READ playedText NOTIFY changed)
    Q_PROPERTY(QString lastPlayedText READ lastPlayed NOTIFY changed)
    Q_PROPERTY(QString playTime READ playTime NOTIFY changed)
    Q_PROPERTY(QString sessions READ sessions NOTIFY changed)
    Q_PROPERTY(QString lastSession READ lastSession NOTIFY changed)
    Q_PROPERTY(QVariantList days READ days NOTIFY changed)
    Q_PROPERTY(QString firstDay READ firstDay NOTIFY changed)
    Q_PROPERTY(QString emulator READ emulator NOTIFY changed)
    Q_PROPERTY(QString emulatorDot READ emulatorDot NOTIFY changed)
    Q_PROPERTY(QString emulatorKind READ emulatorKind NOTIFY changed)
    Q_PROPERTY(QString emulatorPath READ emulatorPath NOTIFY changed)
    Q_PROPERTY(QString consoleNote READ consoleNote NOTIFY changed)
    Q_PROPERTY(QString path READ path NOTIFY changed)
    Q_PROPERTY(QString added READ added NOTIFY changed)
    Q_PROPERTY(QString size READ size NOTIFY sizeChanged)
    Q_PROPERTY(QString fileName READ fileName NOTIFY changed)
    Q_PROPERTY(bool hasState READ hasState NOTIFY changed)
    Q_PROPERTY(bool running READ running NOTIFY changed)
    Q_PROPERTY(bool launching READ launching NOTIFY changed)
    Q_PROPERTY(QString launchText READ launchText NOTIFY changed)
    Q_PROPERTY(GameOptions *options READ options CONSTANT)
    Q_PROPERTY(QString pageTab READ pageTab WRITE setPageTab NOTIFY pageTabChanged)
public:
    struct Sources {
        LibraryStore &library;
        const InstalledEmulators &emulators;
        Preferences &preferences;
        const Translator &translator;
        const Clock &clock;
        Tasks &tasks;
        Workspace &workspace;
        Host host;
    };

    explicit GameFacts(const Sources &sources, QObject *parent = nullptr);

    QString gameID() const { return m_gameID; }
    void setGameID(const QString &id);

    bool exists() const { return entry() != nullptr; }
    QString title() const;
    QString cover() const; ///< what stands behind "image://cover/"
    QString consoleID() const;
    QString consoleName() const;
    QString consoleShort() const;
    qreal ratio() const; ///< of the cover: height by width
    bool favorite() const;
    QString status() const; ///< the English title; empty: none
    QString statusText() const;
    QString statusDot() const;
    QString playedText() const; ///< "9 h 05 min played" or "Never played"
    QString lastPlayed() const; ///< empty when never
    QString playTime() const;
    QString sessions() const;
    QString lastSession() const;
    QVariantList days() const; ///< the last 14 days for `Bars`
    QString firstDay() const; ///< the first of them
    QString emulator() const; ///< its name, or why there is none
    QString emulatorDot() const;
    QString emulatorKind() const; ///< empty when there is no emulator
    QString emulatorPath() const;
    QString consoleNote() const;
    QString path() const;
    QString added() const;
    QString size() const { return m_size; } ///< empty until `measure` has come back
    QString fileName() const;
    bool hasState() const;
    bool running() const;
    bool launching() const;
    QString launchText() const;
    GameOptions *options() { return &m_options; }
    QString pageTab() const; ///< the last tab shown on any game's page: "play", "controller", "stats" or "info"
    void setPageTab(const QString &tab);

    Q_INVOKABLE void measure(); ///< finds out how large the game is, in the background
    Q_INVOKABLE void play(); ///< of a running game: back to it
    Q_INVOKABLE void cancel(); ///< the launch under way
    Q_INVOKABLE void continueFromState();
    Q_INVOKABLE void toggleFavorite();
    Q_INVOKABLE void chooseStatus(const QString &status); ///< the present one again takes it away
    Q_INVOKABLE void rename(const QString &title); ///< nothing happens with an empty one
    Q_INVOKABLE void remove();
    Q_INVOKABLE void showInFolder() const;

signals:
    void changed();
    void sizeChanged();
    void pageTabChanged();

private:
    const GameEntry *entry() const { return m_library.game(m_gameID); }
    const Console *console() const;

    LibraryStore &m_library;
    const InstalledEmulators &m_emulators;
    Preferences &m_preferences;
    const Translator &m_translator;
    const Clock &m_clock;
    Tasks &m_tasks;
    Workspace &m_workspace;
    const Host m_host;
    GameOptions m_options;
    QString m_gameID;
    QString m_size;
};
