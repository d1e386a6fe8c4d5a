#include "platform/linux/Sdl.h"

#include <QLibrary>
#include <optional>

static std::optional<Sdl> functions()
{
    QLibrary library(QStringLiteral("SDL2-2.0"), 0); // stays open when this object goes
    Sdl sdl;
#define VELKO_SDL_RESOLVE(name)                                                                                        \
    sdl.name = reinterpret_cast<decltype(sdl.name)>(library.resolve("SDL_" #name));                                    \
    if (!sdl.name) return {};
    VELKO_SDL_FUNCTIONS(VELKO_SDL_RESOLVE)
#undef VELKO_SDL_RESOLVE
    return sdl;
}

const Sdl *Sdl::load()
{
    static const std::optional<Sdl> sdl = functions();
    return sdl ? &*sdl : nullptr;
}
