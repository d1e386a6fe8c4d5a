#include "app/HostWordings.h"
#include "catalog/EmulatorDef.h"
#include "emulators/controllers/ControllerClass.h"
#include "emulators/controllers/ControllerGuide.h"
#include "emulators/settings/SettingsSupport.h"

#include <QHash>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ControllerGuide, hasStepsForEveryEmulator)
{
    const QHash<QString, qsizetype> steps{{u"melonds"_s, 5}, {u"dolphin"_s, 5}, {u"rpcs3"_s, 8},
                                          {u"cemu"_s, 6},    {u"azahar"_s, 4},  {u"pcsx2"_s, 2},
                                          {u"ppsspp"_s, 6},  {u"openemu"_s, 5}, {u"flycast"_s, 1}};
    for (const auto &[id, count] : steps.asKeyValueRange())
        EXPECT_EQ(controllerGuide(id).size(), count) << id.toStdString();
    for (const Host host : {Host::mac, Host::linux}) {
        for (const EmulatorDef &def : emulatorDefs(host))
            EXPECT_NE(controllerGuide(def.id).first(), controllerHint(def.id)) << def.id.toStdString();
    }
    EXPECT_EQ(controllerGuide(u"x"_s), QStringList{u"Map the controller once in the emulator's settings."_s});
    EXPECT_EQ(controllerHint(u"pcsx2"_s), u"Map the controller once in the emulator's settings."_s);
    EXPECT_EQ(controllerGuide(u"nxnative"_s),
              QStringList{u"Nothing to do: the game reads the Xbox controller directly."_s});
}

TEST(HostWordings, leaveNoMacInWhatAnEmulatorsUserReads)
{
    QStringList texts{u"Native Mac app, no emulator"_s};
    for (const QString &id : {u"nxnative"_s, u"native"_s, u"x"_s})
        texts += controllerGuide(id) + QStringList{qualityNotOffered(id)};
    for (const EmulatorDef &def : emulatorDefs(Host::linux)) {
        texts += controllerGuide(def.id) + QStringList{controllerHint(def.id), qualityNotOffered(def.id)};
        for (const auto preset : {QualityPreset::minimum, QualityPreset::medium, QualityPreset::maximum})
            texts += qualityCaption(def.id, preset, Host::linux).text;
    }
    static const QRegularExpression mac(u"\\bMacs?\\b|macOS|System Settings|top of the screen"_s);
    for (const QString &text : std::as_const(texts)) {
        const QString shown = hostWording(text, Host::linux);
        EXPECT_FALSE(shown.contains(mac)) << shown.toStdString();
        EXPECT_EQ(hostWording(text, Host::mac), text);
    }
}

TEST(ControllerClass, decidesWhetherTheGuideAsksForAnything)
{
    for (const Host host : {Host::mac, Host::linux}) {
        for (const EmulatorDef &def : emulatorDefs(host)) {
            const bool nothing = controllerGuide(def.id).first().startsWith("Nothing to do"_L1);
            EXPECT_EQ(controllerClass(def.id) != ControllerClass::manual, nothing) << def.id.toStdString();
        }
    }
    EXPECT_EQ(controllerClass(u"duckstation"_s), ControllerClass::automatic);
    EXPECT_EQ(controllerClass(u"mgba"_s), ControllerClass::nothingToDo);
    EXPECT_EQ(controllerClass(u"native"_s), ControllerClass::nothingToDo);
    EXPECT_EQ(controllerClass(u"x"_s), ControllerClass::manual);
}
