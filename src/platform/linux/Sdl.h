#pragma once

#define SDL_MAIN_HANDLED
#include <SDL.h>

#define VELKO_SDL_FUNCTIONS(each)                                                                                      \
    each(GameControllerClose) each(GameControllerGetJoystick) each(GameControllerOpen) each(GameControllerPath)        \
        each(GetError) each(InitSubSystem) each(IsGameController) each(JoystickAttachVirtualEx)                        \
            each(JoystickDetachVirtual) each(JoystickGetDeviceInstanceID) each(JoystickNameForIndex)                   \
                each(JoystickSetVirtualAxis) each(JoystickSetVirtualButton) each(NumJoysticks) each(PeepEvents)        \
                    each(PumpEvents) each(QuitSubSystem) each(SetHint) each(SetHintWithPriority) each(SetMainReady)

/// The functions of SDL that controllers need. The library is opened when it is first wanted: linked, it would bring
/// thirty others into every start, before the first frame and before the shortest command.
struct Sdl {
#define VELKO_SDL_MEMBER(name) decltype(&SDL_##name) name = nullptr;
    VELKO_SDL_FUNCTIONS(VELKO_SDL_MEMBER)
#undef VELKO_SDL_MEMBER

    static const Sdl *load(); ///< nothing where it is not installed, or too old
};
