#include "emulators/controllers/ControllerMapping.h"

#include "emulators/controllers/ControllerClass.h"

#include <algorithm>

using namespace Qt::StringLiterals;

bool hasXboxController(const QStringList &controllerNames)
{
    return std::any_of(controllerNames.begin(), controllerNames.end(), [](QString name) {
        return name.remove(u'-').contains("xbox"_L1, Qt::CaseInsensitive); // Linux writes "Generic X-Box pad"
    });
}

namespace {
struct Binding {
    const char *key;
    const char *input; ///< of the first controller
};

constexpr Binding bindings[] = {
    {"Up", "DPadUp"},
    {"Right", "DPadRight"},
    {"Down", "DPadDown"},
    {"Left", "DPadLeft"},
    {"Triangle", "Y"},
    {"Circle", "B"},
    {"Cross", "A"},
    {"Square", "X"},
    {"Select", "Back"},
    {"Start", "Start"},
    {"L1", "LeftShoulder"},
    {"R1", "RightShoulder"},
    {"L2", "+LeftTrigger"},
    {"R2", "+RightTrigger"},
    {"L3", "LeftStick"},
    {"R3", "RightStick"},
    {"LUp", "-LeftY"},
    {"LRight", "+LeftX"},
    {"LDown", "+LeftY"},
    {"LLeft", "-LeftX"},
    {"RUp", "-RightY"},
    {"RRight", "+RightX"},
    {"RDown", "+RightY"},
    {"RLeft", "-RightX"},
    {"SmallMotor", "SmallMotor"},
    {"LargeMotor", "LargeMotor"},
};

/// PCSX2 2.4 and later are built on SDL 3, which names these buttons by their place.
QString faceButton(const QString &input)
{
    if (input == "A"_L1) return u"FaceSouth"_s;
    if (input == "B"_L1) return u"FaceEast"_s;
    if (input == "X"_L1) return u"FaceWest"_s;
    return input == "Y"_L1 ? u"FaceNorth"_s : input;
}
}

QList<ConfigEdit> controllerEdits(const QString &emulatorID, Host host)
{
    if (controllerClass(emulatorID) != ControllerClass::automatic) return {};
    QList<ConfigEdit> edits{{{u"InputSources"_s}, u"SDL"_s, u"true"_s}};
    const bool byPlace = emulatorID == "pcsx2"_L1 && host == Host::linux;
    for (const Binding &binding : bindings) {
        const QString input = QString::fromLatin1(binding.input);
        edits += ConfigEdit{
            {u"Pad1"_s}, QString::fromLatin1(binding.key), u"SDL-0/"_s + (byPlace ? faceButton(input) : input)};
    }
    return edits;
}
