#include "platform/Accessibility.h"
#include "platform/WaitUntil.h"
#include "platform/XServer.h"
#include "platform/linux/LinuxServices.h"

#include <QFile>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr auto patience = 20s;

/// A desktop with a message bus, and a program with menus on it.
struct Desktop {
    QTemporaryDir folder;
    XServer server{XServer::Kind::oneOutput, {}};
    const QString bus = server.startBus();
    QProcess program;
    std::unique_ptr<Tasks> tasks = makeTasks();
    std::unique_ptr<Accessibility> accessibility = makeAccessibility(*tasks, bus);

    Desktop()
    {
        QProcessEnvironment environment = server.environment();
        environment.insert(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s); // as games are started
        program.setProcessEnvironment(environment);
        program.setStandardErrorFile(QProcess::nullDevice());
        program.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        program.start(QString::fromUtf8(VELKO_BUILD_DIR) + u"/velko-test-menus"_s, {pressedFile()});
        waitUntil([this] { return !menu().isEmpty(); }, patience);
    }
    ~Desktop()
    {
        accessibility.reset();
        program.kill();
        program.waitForFinished();
    }

    QString pressedFile() const { return folder.filePath(u"pressed"_s); }
    QByteArray pressed() const
    {
        QFile file(pressedFile());
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    template <class Answer, class Ask>
    Answer answerTo(Ask ask)
    {
        std::optional<Answer> got;
        ask([&](Answer answer) { got = std::move(answer); });
        EXPECT_FALSE(got) << "answered from inside the call";
        EXPECT_TRUE(waitUntil([&] { return got.has_value(); }, patience));
        return got.value_or(Answer());
    }
    QList<MenuEntry> menu(const QStringList &opened = {})
    {
        return answerTo<QList<MenuEntry>>([&](auto done) { accessibility->menu(pids(), opened, done); });
    }
    QList<AccessibleWindow> windows()
    {
        return answerTo<QList<AccessibleWindow>>([&](auto done) { accessibility->windows(pids(), done); });
    }
    bool press(const MenuEntry &entry)
    {
        return answerTo<bool>([&](auto done) { accessibility->press(entry, done); });
    }
    MenuEntry entry(const QString &title, const QStringList &opened = {})
    {
        for (const MenuEntry &each : menu(opened)) {
            if (each.title == title) return each;
        }
        return {};
    }
    QList<qint64> pids() const { return {1, program.processId()}; } // any process of the game
};

QString line(const MenuEntry &entry)
{
    return (entry.path + QStringList{entry.title}).join(u'/') + (entry.enabled ? u""_s : u" disabled"_s)
        + (entry.pressable ? u" pressable"_s : u""_s);
}
}

TEST(LinuxAccessibility, readsMenusAsTheyAre)
{
    Desktop desktop;
    ASSERT_TRUE(desktop.accessibility->isAvailable());
    QStringList lines;
    for (const MenuEntry &each : desktop.menu({u"save state"_s}))
        lines += line(each);
    EXPECT_EQ(lines.join(u'\n').toStdString(),
              (QStringList{u"File"_s, u"File/Quick save"_s, u"File/Quick save/State 1 pressable"_s,
                           u"File/Quick save/State 2 disabled pressable"_s, u"File/Quick load disabled"_s,
                           u"File/Quick load/Load 1 disabled pressable"_s, u"File/Recent"_s, u"File/Quit… pressable"_s,
                           u"System"_s, u"System/Save State"_s, u"System/Save State/Slot 1 pressable"_s})
                  .join(u'\n')
                  .toStdString());
    EXPECT_EQ(desktop.answerTo<QList<MenuEntry>>([&](auto done) {
        desktop.accessibility->menu({1, 2}, {}, done);
    }),
              QList<MenuEntry>());
}

TEST(LinuxAccessibility, pressesWhatCanBePressed)
{
    Desktop desktop;
    EXPECT_TRUE(desktop.press(desktop.entry(u"State 1"_s)));
    EXPECT_TRUE(desktop.press(desktop.entry(u"Slot 1"_s, {u"save state"_s})));
    EXPECT_TRUE(waitUntil([&] { return desktop.pressed() == "State &1\nSlot 1\n"; })) << desktop.pressed().constData();
    EXPECT_FALSE(desktop.press(desktop.entry(u"Quick save"_s)));
    EXPECT_FALSE(desktop.press({.title = u"Made up"_s, .enabled = true, .pressable = true, .reference = u":9.9 /x"_s}));
    EXPECT_FALSE(desktop.press({.pressable = true, .reference = u"no bus name / at all"_s}));
    EXPECT_FALSE(desktop.press({.pressable = true}));
}

TEST(LinuxAccessibility, seesQuestionsAndAnEntryThatBringsOneUp)
{
    Desktop desktop;
    const QList<AccessibleWindow> before = desktop.windows();
    ASSERT_EQ(before.size(), 1) << "the hidden one does not count";
    EXPECT_EQ(before[0], (AccessibleWindow{AccessibleWindow::Role::frame, u"Game"_s, {640, 480}, false}));
    EXPECT_TRUE(desktop.press(desktop.entry(u"Quit…"_s))) << "though the answer waits for the question";
    QList<AccessibleWindow> now;
    ASSERT_TRUE(waitUntil(
        [&] {
            now = desktop.windows();
            return now.size() == 2;
        },
        patience));
    EXPECT_EQ(now[1].title, u"Confirm"_s);
    EXPECT_TRUE(now[1].role == AccessibleWindow::Role::dialog || now[1].role == AccessibleWindow::Role::alert);
    EXPECT_TRUE(now[1].hasButton);
}

TEST(LinuxAccessibility, getsNothingFromAFrozenProgram)
{
    Desktop desktop;
    const MenuEntry entry = desktop.entry(u"State 1"_s);
    ASSERT_TRUE(entry.pressable);
    ::kill(pid_t(desktop.program.processId()), SIGSTOP);
    EXPECT_EQ(desktop.menu(), QList<MenuEntry>());
    EXPECT_EQ(desktop.windows(), QList<AccessibleWindow>());
    EXPECT_FALSE(desktop.press(entry));
    ::kill(pid_t(desktop.program.processId()), SIGCONT);
    EXPECT_EQ(desktop.entry(u"State 1"_s), entry);
    // Gone in the middle of a question: no answer, and nothing worse.
    desktop.accessibility->menu(desktop.pids(), {}, [](const QList<MenuEntry> &) { ADD_FAILURE(); });
    desktop.accessibility.reset();
    desktop.tasks.reset();
    waitUntil([] { return false; }, 50ms);
}

TEST(LinuxAccessibility, answersWithoutABus)
{
    const auto tasks = makeTasks();
    const auto accessibility = makeAccessibility(*tasks, u"unix:path=/nowhere"_s);
    std::optional<QList<MenuEntry>> menu;
    accessibility->menu({1}, {}, [&](const QList<MenuEntry> &got) { menu = got; });
    EXPECT_TRUE(waitUntil([&] { return menu.has_value(); }, patience));
    EXPECT_EQ(menu, QList<MenuEntry>());
}
