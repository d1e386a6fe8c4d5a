#include "emulators/settings/EmulatorChanges.h"
#include "emulators/settings/EmulatorSetUp.h"
#include "fakes/FakeProcessControl.h"
#include "fakes/FakeTasks.h"
#include "fakes/ManualClock.h"
#include "fakes/TemporaryHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class Changes : public testing::Test {
protected:
    Changes()
    {
        QObject::connect(&changes, &EmulatorChanges::putBackFinished,
                         [this](const QString &, const PutBackReport &report) { reports += report; });
    }
    static QByteArray sample(const QString &name)
    {
        QFile file(QStringLiteral(VELKO_SOURCE_DIR "/tests/samples/") + name);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }
    void setUp(const QString &id, QualityPreset quality, bool fps = false)
    {
        SetUpOrder order;
        const InstalledEmulator copy{id, ApplicationKind::native, u"/usr/bin/x"_s, {}, {}};
        order.wish = {id, Host::linux, emulatorFolders(copy, home.places()), u"/games/game"_s, {}, quality};
        order.wish.settings.showFPS = order.wish.settings.widescreen = fps;
        order.mapsController = true;
        order.notes = changes.notes();
        order.notes.now = {800000000};
        changes.record(setUpEmulator(order, FakeProcessControl()).notes);
    }
    std::string reportText() const { return english(sentence(reports.last(), u"It"_s)).toStdString(); }

    const TemporaryHome home;
    FakeProcessControl processes;
    FakeTasks tasks;
    ManualClock clock;
    EmulatorChanges changes{home.places(), clock, tasks, processes};
    QList<PutBackReport> reports;
};

TEST_F(Changes, areListedWithWhatTheUserHad)
{
    home.write(u".config/azahar-emu/qt-config.ini"_s, "[Renderer]\nresolution_factor=2\n");
    setUp(u"azahar"_s, QualityPreset::medium);
    setUp(u"azahar"_s, QualityPreset::maximum);
    const auto resolution = [this] {
        for (const EmulatorChange &change : changes.of(u"azahar"_s)) {
            if (change.key == "resolution_factor"_L1) return change;
        }
        return EmulatorChange();
    };
    EXPECT_EQ(resolution().old, QStringList{u"2"_s}) << "from before the first change";
    EXPECT_EQ(resolution().written, u"6"_s);
    EXPECT_EQ(resolution().when.seconds, 800000000);
    EXPECT_EQ(resolution().section, QStringList{u"Renderer"_s});
    EXPECT_TRUE(changes.of(u"pcsx2"_s).isEmpty());

    const EmulatorChanges later(home.places(), clock, tasks, processes);
    EXPECT_EQ(later.journal(), changes.journal()) << "kept in a file";

    QByteArray users = home.read(u".config/azahar-emu/qt-config.ini"_s);
    users.replace("resolution_factor=6", "resolution_factor=10");
    home.write(u".config/azahar-emu/qt-config.ini"_s, users);
    setUp(u"azahar"_s, QualityPreset::medium);
    EXPECT_EQ(resolution().old, QStringList{u"10"_s}) << "the user has changed it since";
    home.write(u".config/azahar-emu/qt-config.ini"_s, users.replace("resolution_factor=10", "resolution_factor=3"));
    setUp(u"azahar"_s, QualityPreset::medium);
    EXPECT_EQ(resolution().old, QStringList{u"10"_s});
}

TEST_F(Changes, goBackToTheLetter)
{
    const QList<std::array<QString, 3>> files{
        {u"pcsx2"_s, u".config/PCSX2/inis/PCSX2.ini"_s, u"PCSX2.ini"_s},
        {u"ppsspp"_s, u".config/ppsspp/PSP/SYSTEM/ppsspp.ini"_s, u"ppsspp.ini"_s},
        {u"azahar"_s, u".config/azahar-emu/qt-config.ini"_s, u"azahar-qt-config.ini"_s},
        {u"rpcs3"_s, u".config/rpcs3/config.yml"_s, u"rpcs3-config.yml"_s},
        {u"melonds"_s, u".config/melonDS/melonDS.toml"_s, u"melonDS.toml"_s},
        {u"cemu"_s, u".config/Cemu/settings.xml"_s, u"cemu-settings.xml"_s}};
    for (const auto &[id, file, name] : files) {
        const QByteArray before = sample(name);
        home.write(file, before);
        setUp(id, QualityPreset::maximum, true);
        EXPECT_NE(home.read(file), before) << qPrintable(id);
        changes.putBack(id);
        tasks.finish();
        EXPECT_EQ(home.read(file).toStdString(), before.toStdString());
        EXPECT_TRUE(changes.of(id).isEmpty());
        EXPECT_TRUE(reports.last().changedSince.isEmpty() && reports.last().failures.isEmpty());
    }
    EXPECT_EQ(reports.size(), files.size());
}

TEST_F(Changes, ofAFileThatLackedTheKeysLeaveNoKeyBehind)
{
    home.write(u".local/share/xemu/xemu/xemu.toml"_s, "[sys.files]\nhdd_path = '/x'\n");
    setUp(u"xemu"_s, QualityPreset::maximum);
    EXPECT_EQ(changes.of(u"xemu"_s).size(), 3);
    changes.putBack(u"xemu"_s);
    tasks.finish();
    EXPECT_EQ(home.read(u".local/share/xemu/xemu/xemu.toml"_s),
              "[sys.files]\nhdd_path = '/x'\n[display.quality]\n[general]\n[general.updates]\n");
    EXPECT_EQ(reportText(), "It has your own settings again (3 put back).");
}

TEST_F(Changes, thatTheUserMadeSinceStay)
{
    const QString file = u".local/share/duckstation/settings.ini"_s;
    home.write(file, sample(u"duckstation-settings.ini"_s));
    setUp(u"duckstation"_s, QualityPreset::maximum);
    const qsizetype all = changes.of(u"duckstation"_s).size();
    home.write(file, home.read(file).replace("ResolutionScale = 8", "ResolutionScale = 5"));
    changes.putBack(u"duckstation"_s);
    tasks.finish();
    EXPECT_TRUE(home.read(file).contains("ResolutionScale = 5\n"));
    EXPECT_TRUE(home.read(file).contains("ConfirmPowerOff = true\n"));
    EXPECT_EQ(reports.last().changedSince.size(), 1);
    EXPECT_EQ(reports.last().done.size(), all - 1);
    EXPECT_EQ(reportText(),
              "It has your own settings again: " + std::to_string(all - 1)
                  + " put back, 1 left alone because you have changed them since.");
    EXPECT_TRUE(changes.of(u"duckstation"_s).isEmpty());
}

TEST_F(Changes, goBackWhenTheEmulatorHasEnded)
{
    const QString file = u".config/PCSX2/inis/PCSX2.ini"_s;
    home.write(file, sample(u"PCSX2.ini"_s));
    setUp(u"pcsx2"_s, QualityPreset::maximum);
    const QByteArray ours = home.read(file);
    processes.processes = {{5, {5, 1, u"pcsx2-v2.8.2-linux-appimage-x64-Qt.AppImage"_s}}};
    changes.putBack(u"pcsx2"_s);
    changes.putBack(u"pcsx2"_s);
    tasks.finish();
    clock.advance(10min);
    tasks.finish();
    EXPECT_EQ(home.read(file), ours);
    EXPECT_TRUE(changes.isWaiting(u"pcsx2"_s));
    changes.cancelPutBack(u"pcsx2"_s);
    clock.advance(2s);
    EXPECT_EQ(clock.pending(), 0);

    changes.putBack(u"pcsx2"_s);
    tasks.finish();
    processes.processes.clear();
    clock.advance(2s);
    tasks.finish();
    EXPECT_EQ(home.read(file), sample(u"PCSX2.ini"_s));
    EXPECT_FALSE(changes.isWaiting(u"pcsx2"_s));
    EXPECT_EQ(clock.pending(), 0);
    EXPECT_EQ(reports.size(), 1);
    changes.putBack(u"pcsx2"_s);
    EXPECT_TRUE(tasks.waiting.empty()) << "nothing to put back";
}

TEST_F(Changes, stayInTheJournalWhileTheFileCannotBeWritten)
{
    const QString file = u".config/Cemu/settings.xml"_s;
    home.write(file, sample(u"cemu-settings.xml"_s));
    setUp(u"cemu"_s, QualityPreset::medium);
    const QList<EmulatorChange> all = changes.of(u"cemu"_s);
    home.write(file, "<content>");
    changes.putBack(u"cemu"_s);
    tasks.finish();
    EXPECT_EQ(changes.of(u"cemu"_s), all);
    EXPECT_TRUE(reportText().starts_with("Velko left"));
    QFile::remove(home.path() + u'/' + file);
    changes.putBack(u"cemu"_s);
    tasks.finish();
    EXPECT_TRUE(changes.of(u"cemu"_s).isEmpty()) << "with the file its changes are gone";
}

TEST_F(Changes, aJournalThatCannotBeReadIsSetAside)
{
    const QString file = u".local/share/VelkoEmu/emulator-changes.json"_s;
    home.write(file, "{ broken");
    EXPECT_TRUE(changes.journal().changes.isEmpty());
    EXPECT_EQ(home.read(file + u".unreadable"_s), "{ broken");
    const QByteArray odd = R"({"changes": [7, {"emulator": "x"}, {"emulator": "x", "file": "/f", "format": "?",
        "key": "k"}, {"emulator": "x", "file": "/f", "format": "ini", "key": "k"}], "quieted": {"/f": "?"}})";
    EXPECT_EQ(decodeJournal(odd).changes.size(), 1);
    EXPECT_EQ(decodeJournal(encodeJournal(decodeJournal(odd))), decodeJournal(odd));
}
