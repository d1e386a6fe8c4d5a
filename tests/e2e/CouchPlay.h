#pragma once

#include "Program.h"

#include <QFile>
#include <QJsonObject>
#include <gtest/gtest.h>

/// A controller without hardware: what is written here reaches Velko as presses.
class TestPad {
public:
    explicit TestPad(const QString &pipe); ///< makes the pipe
    void say(const QByteArray &line);
    void press(const char *button, int times = 1);
    void chord(); ///< View and Menu

    QString pipe() const { return m_pipe.fileName(); }

private:
    QFile m_pipe;
};

/// One person, one controller, one display. Knows what of Velko and of the game is in front.
class CouchPlay : public testing::Test {
protected:
    explicit CouchPlay(XServer::Kind kind = XServer::Kind::oneOutput,
                       const QString &windowManager = QStringLiteral("openbox"));
    void SetUp() override;
    void chooseEmulator(const QByteArray &preferences); ///< lines of the preferences file
    void play(const QString &title); ///< `velko play` with the controller
    void openWindow(); ///< `velko` with the controller
    QList<qint64> game() const; ///< the emulator's processes, the started one first
    bool gameIsInFront();
    bool menuIsInFront(); ///< Velko's menu fills the screen and has the keyboard
    bool gameStandsStill() const; ///< every process of it
    bool openMenu();
    bool chooseItem(int item); ///< counted from the top of the menu, which is open
    void quitFromMenu(); ///< which is open
    QJsonObject firstGame() const;
    std::string story(); ///< the log of where windows were placed, and what there is now
    QStringList files(const QString &folder, const QString &pattern) const;

    VirtualDisplay display;
    QRect screen; ///< where the game belongs
    std::unique_ptr<TestPad> pad;
    std::unique_ptr<Program> velko;
    QString emulatorName = QStringLiteral("mgba-qt"); ///< in the command line of its process
};
