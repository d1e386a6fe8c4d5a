#include "platform/linux/DoorBell.h"
#include "platform/linux/LinuxServices.h"
#include "platform/linux/Sdl.h"
#include "platform/linux/VirtualPad.h"

#include <QDebug>
#include <QFileInfo>
#include <QFileSystemWatcher>

#include <set>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr auto betweenLooks = 8ms; ///< a press waits this long at most where no bell rings
static constexpr int mostEarly = 100;

static constexpr std::pair<SDL_GameControllerButton, PadButton> buttons[] = {
    {SDL_CONTROLLER_BUTTON_DPAD_LEFT, PadButton::dpadLeft},
    {SDL_CONTROLLER_BUTTON_DPAD_RIGHT, PadButton::dpadRight},
    {SDL_CONTROLLER_BUTTON_DPAD_UP, PadButton::dpadUp},
    {SDL_CONTROLLER_BUTTON_DPAD_DOWN, PadButton::dpadDown},
    {SDL_CONTROLLER_BUTTON_A, PadButton::a},
    {SDL_CONTROLLER_BUTTON_B, PadButton::b},
    {SDL_CONTROLLER_BUTTON_X, PadButton::x},
    {SDL_CONTROLLER_BUTTON_Y, PadButton::y},
    {SDL_CONTROLLER_BUTTON_LEFTSHOULDER, PadButton::leftShoulder},
    {SDL_CONTROLLER_BUTTON_RIGHTSHOULDER, PadButton::rightShoulder},
    {SDL_CONTROLLER_BUTTON_BACK, PadButton::view},
    {SDL_CONTROLLER_BUTTON_START, PadButton::menu},
    {SDL_CONTROLLER_BUTTON_MISC1, PadButton::share},
    {SDL_CONTROLLER_BUTTON_LEFTSTICK, PadButton::leftStick},
    {SDL_CONTROLLER_BUTTON_RIGHTSTICK, PadButton::rightStick},
};

static constexpr std::pair<SDL_GameControllerAxis, PadButton> triggers[] = {
    {SDL_CONTROLLER_AXIS_TRIGGERLEFT, PadButton::leftTrigger},
    {SDL_CONTROLLER_AXIS_TRIGGERRIGHT, PadButton::rightTrigger},
};

template <class Table, class Value>
static auto firstFor(const Table &table, Value second) -> std::optional<decltype(std::begin(table)->first)>
{
    for (const auto &row : table)
        if (row.second == second) return row.first;
    return {};
}

template <class Table, class Value>
static std::optional<PadButton> buttonFor(const Table &table, Value first)
{
    for (const auto &row : table)
        if (row.first == first) return row.second;
    return {};
}

namespace {

struct OpenPad {
    Pad pad;
    SDL_GameController *controller = nullptr; ///< none for one that is not standard
    std::set<PadButton> held; ///< as announced
    std::unique_ptr<DoorBell> bell;
};

class LinuxGamepads final : public Gamepads {
public:
    LinuxGamepads(Clock &clock, const QString &deviceFolder) : m_clock(clock), m_deviceFolder(deviceFolder) { }
    ~LinuxGamepads() override;

    void start() override;
    Result<void> attachVirtual(const QString &pipe) override;
    QList<Pad> pads() const override;
    bool isHeld(int pad, PadButton button) const override;

private:
    void watch();
    void look();
    void lookAgain(int rest);
    void answer();
    void chooseWaiting();
    void handle(const SDL_Event &event);
    void add(int device);
    void remove(SDL_JoystickID id);
    void moveTrigger(SDL_JoystickID id, SDL_GameControllerAxis axis, int value);
    void setHeld(SDL_JoystickID id, std::optional<PadButton> button, bool held);
    OpenPad *find(int id);

    void plugIn();
    void unplug();
    void obey(PadCommand command);
    void setVirtual(PadButton button, bool down);

    Clock &m_clock;
    const QString m_deviceFolder;
    bool m_started = false;
    const Sdl *m_sdl = nullptr; ///< from the start on
    std::vector<OpenPad> m_pads;
    QFileSystemWatcher m_devices; ///< rings when one is plugged in
    Timer m_poll; ///< only while an open controller has no bell: SDL's own waiting wakes up a thousand times a second
    Timer m_rest; ///< after a bell has rung
    Timer m_again; ///< a device that was plugged in is not ready at once
    std::unique_ptr<CommandPipe> m_pipe;
    QList<PadCommand> m_early; ///< given before the start
    std::optional<SDL_JoystickID> m_virtual;
};

}

LinuxGamepads::~LinuxGamepads()
{
    for (OpenPad &open : m_pads)
        if (open.controller) m_sdl->GameControllerClose(open.controller);
    if (m_started) m_sdl->QuitSubSystem(SDL_INIT_GAMECONTROLLER);
}

void LinuxGamepads::start()
{
    if (m_started) return;
    m_sdl = Sdl::load();
    if (!m_sdl) {
        qWarning("controllers can't be used: SDL 2 is missing. Install libsdl2-2.0-0.");
        return;
    }
    m_sdl->SetMainReady();
    // With its own handlers SDL takes SIGTERM and SIGINT, and Velko cannot be ended any more.
    m_sdl->SetHintWithPriority(SDL_HINT_NO_SIGNAL_HANDLERS, "1", SDL_HINT_OVERRIDE);
    m_sdl->SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1"); // SDL has no window, so none of its own is in front
    m_sdl->SetHint(SDL_HINT_GAMECONTROLLER_USE_BUTTON_LABELS, "0"); // by place, as emulators map them
    // Through hidraw some controllers report hundreds of times a second while they lie still; the kernel's own drivers
    // report changes only.
    m_sdl->SetHint(SDL_HINT_JOYSTICK_HIDAPI, "0");
    if (m_sdl->InitSubSystem(SDL_INIT_GAMECONTROLLER) != 0) {
        qWarning() << "controllers can't be used:" << m_sdl->GetError();
        return;
    }
    m_started = true;
    watch();
    connect(&m_devices, &QFileSystemWatcher::directoryChanged, this, [this] { lookAgain(5); });
    if (m_pipe) plugIn();
    look();
    for (const PadCommand command : std::exchange(m_early, {}))
        obey(command);
}

/// The folder of devices, or the one where it will appear.
void LinuxGamepads::watch()
{
    const QString folder = QFileInfo::exists(m_deviceFolder) ? m_deviceFolder : QFileInfo(m_deviceFolder).path();
    if (m_devices.directories() == QStringList{folder}) return;
    if (!m_devices.directories().isEmpty()) m_devices.removePaths(m_devices.directories());
    m_devices.addPath(folder);
}

/// The file appears first, then its permissions, and then udev tells what it is: the looks come later and later.
void LinuxGamepads::lookAgain(int rest)
{
    watch();
    look();
    m_again = rest == 0 ? nullptr : m_clock.after((6 - rest) * 200ms, [this, rest] { lookAgain(rest - 1); });
}

void LinuxGamepads::look()
{
    m_sdl->PumpEvents();
    SDL_Event event;
    while (m_sdl->PeepEvents(&event, 1, SDL_GETEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) == 1)
        handle(event);
    chooseWaiting();
}

/// A bell has rung. Until some milliseconds later no bell rings again: a controller in full use reports up to a
/// thousand times a second.
void LinuxGamepads::answer()
{
    bool any = false;
    bool gone = false;
    for (const OpenPad &open : m_pads) {
        if (!open.bell || !open.bell->takeAll()) continue;
        any = true;
        gone |= !open.bell->works();
    }
    for (const OpenPad &open : m_pads)
        if (open.bell) open.bell->mute(any);
    m_rest = any ? m_clock.after(betweenLooks, [this] { answer(); }) : nullptr;
    if (gone)
        lookAgain(5);
    else if (any)
        look();
}

void LinuxGamepads::chooseWaiting()
{
    const bool silent = std::any_of(m_pads.begin(), m_pads.end(), [this](const OpenPad &open) {
        return open.controller && open.pad.id != m_virtual && !(open.bell && open.bell->works());
    });
    if (!silent)
        m_poll.reset();
    else if (!m_poll)
        m_poll = m_clock.every(betweenLooks, [this] { look(); });
}

void LinuxGamepads::handle(const SDL_Event &event)
{
    switch (event.type) {
    case SDL_JOYDEVICEADDED:
        return add(event.jdevice.which);
    case SDL_JOYDEVICEREMOVED:
        return remove(event.jdevice.which);
    case SDL_CONTROLLERBUTTONDOWN:
    case SDL_CONTROLLERBUTTONUP:
        return setHeld(event.cbutton.which, buttonFor(buttons, SDL_GameControllerButton(event.cbutton.button)),
                       event.type == SDL_CONTROLLERBUTTONDOWN);
    case SDL_CONTROLLERAXISMOTION:
        return moveTrigger(event.caxis.which, SDL_GameControllerAxis(event.caxis.axis), event.caxis.value);
    }
}

void LinuxGamepads::add(int device)
{
    const SDL_JoystickID id = m_sdl->JoystickGetDeviceInstanceID(device);
    if (id < 0 || find(id)) return;
    OpenPad open{.pad = {.id = id, .name = QString::fromUtf8(m_sdl->JoystickNameForIndex(device)).simplified()}};
    if (m_sdl->IsGameController(device)) open.controller = m_sdl->GameControllerOpen(device);
    open.pad.standard = open.controller != nullptr;
    const QString path = QString::fromUtf8(open.controller ? m_sdl->GameControllerPath(open.controller) : "");
    if (path.startsWith("/dev/input/"_L1)) open.bell = std::make_unique<DoorBell>(path, [this] { answer(); });
    const Pad pad = open.pad;
    m_pads.push_back(std::move(open));
    emit connected(pad);
}

void LinuxGamepads::remove(SDL_JoystickID id)
{
    OpenPad *open = find(id);
    if (!open) return;
    for (const PadButton button : std::set(open->held))
        setHeld(id, button, false);
    if (open->controller) m_sdl->GameControllerClose(open->controller);
    std::erase_if(m_pads, [id](const OpenPad &one) { return one.pad.id == id; });
    emit disconnected(id);
}

/// Two thresholds, so that a finger at rest on one does not press again and again.
void LinuxGamepads::moveTrigger(SDL_JoystickID id, SDL_GameControllerAxis axis, int value)
{
    const auto button = buttonFor(triggers, axis);
    if (!button) return;
    if (value > SDL_JOYSTICK_AXIS_MAX * 55 / 100) setHeld(id, button, true);
    if (value < SDL_JOYSTICK_AXIS_MAX * 40 / 100) setHeld(id, button, false);
}

void LinuxGamepads::setHeld(SDL_JoystickID id, std::optional<PadButton> button, bool held)
{
    OpenPad *open = find(id);
    if (!open || !button || open->held.contains(*button) == held) return;
    if (held) {
        open->held.insert(*button);
        emit pressed(id, *button);
    } else {
        open->held.erase(*button);
        emit released(id, *button);
    }
}

OpenPad *LinuxGamepads::find(int id)
{
    const auto found = std::find_if(m_pads.begin(), m_pads.end(), [id](const OpenPad &o) { return o.pad.id == id; });
    return found == m_pads.end() ? nullptr : &*found;
}

QList<Pad> LinuxGamepads::pads() const
{
    QList<Pad> list;
    for (const OpenPad &open : m_pads)
        list += open.pad;
    return list;
}

/// As announced, not as SDL knows it: of two buttons that go down within one look, the first must not see the second
/// as held already, or a chord would come twice.
bool LinuxGamepads::isHeld(int pad, PadButton button) const
{
    return std::any_of(m_pads.begin(), m_pads.end(),
                       [pad, button](const OpenPad &open) { return open.pad.id == pad && open.held.contains(button); });
}

Result<void> LinuxGamepads::attachVirtual(const QString &path)
{
    auto pipe = CommandPipe::open(path, [this](PadCommand command) { obey(command); });
    if (!pipe) return pipe.failure();
    m_pipe = std::move(pipe.value());
    if (m_started) plugIn();
    return {};
}

void LinuxGamepads::plugIn()
{
    if (m_virtual) return;
    SDL_VirtualJoystickDesc description{};
    description.version = SDL_VIRTUAL_JOYSTICK_DESC_VERSION;
    description.type = SDL_JOYSTICK_TYPE_GAMECONTROLLER;
    description.naxes = SDL_CONTROLLER_AXIS_MAX;
    description.nbuttons = SDL_CONTROLLER_BUTTON_MAX;
    description.vendor_id = 0x045e; // known to have a Share button
    description.product_id = 0x0b12;
    description.axis_mask = (1u << SDL_CONTROLLER_AXIS_MAX) - 1;
    description.button_mask = (1u << SDL_CONTROLLER_BUTTON_MAX) - 1;
    description.name = "Virtual controller";
    const int device = m_sdl->JoystickAttachVirtualEx(&description);
    if (device < 0) {
        qWarning() << "no virtual controller:" << m_sdl->GetError();
        return;
    }
    m_virtual = m_sdl->JoystickGetDeviceInstanceID(device);
    look();
    for (const auto &[axis, trigger] : triggers)
        setVirtual(trigger, false);
    look();
}

void LinuxGamepads::unplug()
{
    for (int device = 0; m_virtual && device < m_sdl->NumJoysticks(); ++device)
        if (m_sdl->JoystickGetDeviceInstanceID(device) == *m_virtual) {
            m_sdl->JoystickDetachVirtual(device);
            m_virtual.reset();
        }
    look();
}

/// The pipe is the bell of the virtual controller: each command is seen through before the next.
void LinuxGamepads::obey(PadCommand command)
{
    if (!m_started) {
        if (m_early.size() < mostEarly) m_early += command;
        return;
    }
    if (command.kind == PadCommand::Kind::plugIn) return plugIn();
    if (command.kind == PadCommand::Kind::unplug) return unplug();
    if (command.kind != PadCommand::Kind::release) {
        setVirtual(command.button, true);
        look();
    }
    if (command.kind != PadCommand::Kind::hold) {
        setVirtual(command.button, false);
        look();
    }
}

void LinuxGamepads::setVirtual(PadButton button, bool down)
{
    const OpenPad *open = m_virtual ? find(*m_virtual) : nullptr;
    if (!open || !open->controller) return;
    SDL_Joystick *joystick = m_sdl->GameControllerGetJoystick(open->controller);
    if (const auto axis = firstFor(triggers, button))
        m_sdl->JoystickSetVirtualAxis(joystick, *axis, Sint16(down ? SDL_JOYSTICK_AXIS_MAX : SDL_JOYSTICK_AXIS_MIN));
    else if (const auto place = firstFor(buttons, button))
        m_sdl->JoystickSetVirtualButton(joystick, *place, down ? SDL_PRESSED : SDL_RELEASED);
}

std::unique_ptr<Gamepads> makeGamepads(Clock &clock, const QString &deviceFolder)
{
    return std::make_unique<LinuxGamepads>(clock, deviceFolder);
}
