#include "Lanterns.h"

#include "Cartridge.h"
#include "Memory.h"
#include "Routines.h"
#include "Scene.h"

#include <cmath>

using namespace sm83;

namespace {

void clear(Assembler &p, int from, int size, const std::string &name)
{
    p.ld(hl, from);
    p.ld(bc, size);
    p.label(name);
    p.ld(a, 0);
    p.ldNext(hl, a);
    p.dec(bc);
    p.ld(a, b);
    p.Or(c);
    p.jr(ifNotZero, name);
}

void copy(Assembler &p, int to, const std::string &from, int size)
{
    p.ld(hl, to);
    p.ld(de, from);
    p.ld(bc, size);
    p.call("copy");
}

/// Writes the 64 bytes at `from` to the colour memory.
void loadColours(Assembler &p, At index, At data, const std::string &from)
{
    p.ld(a, 0x80); // from 0 on, stepping
    p.ld(index, a);
    p.ld(hl, from);
    p.ld(b, 64);
    p.label(from + " next");
    p.ldNext(a, hl);
    p.ld(data, a);
    p.dec(b);
    p.jr(ifNotZero, from + " next");
}

void start(Assembler &p)
{
    p.di();
    p.ld(sp, 0xE000);
    p.push(de);
    p.ld(b, a); // 0x11 on a colour machine
    p.label("wait for a dark screen");
    p.ld(a, hardware::line);
    p.cp(144);
    p.jr(ifNotZero, "wait for a dark screen");
    p.ld(a, 0);
    p.ld(hardware::display, a);
    p.ld(a, b);
    p.ld(isColour, a);

    clear(p, objects, 0xA0, "clear objects");
    clear(p, lanterns, lanternCount * 4, "clear lanterns");
    copy(p, copyRoutine, "object copy", 10);
    copy(p, hardware::tiles, "tiles", int(drawScene().tiles.size()));
    copy(p, hardware::map, "map", Scene::columns * Scene::barRow);
    copy(p, hardware::windowMap, "bar map", Scene::columns * 2);
    p.ld(a, isColour);
    p.cp(0x11);
    p.jr(ifNotZero, "grey machine");
    p.ld(a, 1);
    p.ld(hardware::videoBank, a);
    copy(p, hardware::map, "palettes", Scene::columns * Scene::barRow);
    copy(p, hardware::windowMap, "bar palettes", Scene::columns * 2);
    p.ld(a, 0);
    p.ld(hardware::videoBank, a);
    loadColours(p, hardware::colourIndex, hardware::colour, "background colours");
    loadColours(p, hardware::objectColourIndex, hardware::objectColour, "object colours");
    p.label("grey machine");
    p.ld(a, 0b00'10'11'11);
    p.ld(hardware::greys, a);
    p.ld(a, 0b00'01'11'00);
    p.ld(hardware::objectGreys, a);
    p.ld(hardware::objectGreys1, a);

    p.ld(a, 0x80);
    p.ld(hardware::sound, a);
    p.ld(a, 0xFF);
    p.ld(hardware::speakers, a);
    p.ld(a, 0x33);
    p.ld(hardware::volume, a);

    p.ld(a, 84);
    p.ld(ownX, a);
    p.ld(ownY, a);
    p.ld(a, 0);
    p.ld(held, a);
    copy(p, lanterns, "first lanterns", 16);
    p.ld(a, 4);
    p.ld(nextLantern, a);
    p.call("load progress");

    p.ld(a, 0);
    p.ld(hardware::scrollX, a);
    p.ld(hardware::scrollY, a);
    p.ld(hardware::interruptsWaiting, a);
    p.ld(a, Scene::barLine);
    p.ld(hardware::windowY, a);
    p.ld(a, 7);
    p.ld(hardware::windowX, a);
    p.ld(a, 0b1111'0111); // display, second map for the window, window, tiles at 0x8000, tall objects, background
    p.ld(hardware::display, a);
    p.ld(a, 1);
    p.ld(hardware::interruptsWanted, a);
    p.ei();
}

void mainLoop(Assembler &p)
{
    p.label("frame");
    p.halt();
    p.call(copyRoutine);
    p.call("show counters");
    p.call("read keys");
    p.call("move own lantern");
    p.ld(a, pressed);
    p.bit(keyA, a);
    p.jr(ifZero, "nothing lit");
    p.call("light lantern");
    p.label("nothing lit");
    p.call("draw own lantern");
    p.call("move lanterns");
    p.call("twinkle");
    p.call("count frame");
    p.call("ripple");
    p.jr("frame");
}

/// copy: BC bytes from DE to HL.
void copyRoutines(Assembler &p)
{
    p.label("copy");
    p.ldFromDE();
    p.ldNext(hl, a);
    p.inc(de);
    p.dec(bc);
    p.ld(a, b);
    p.Or(c);
    p.jr(ifNotZero, "copy");
    p.ret();

    // Runs at copyRoutine: while the video chip copies the object table, only that page can be read.
    p.label("object copy");
    p.ld(a, objects >> 8);
    p.ld(hardware::copyObjects, a);
    p.ld(a, 40);
    p.bytes({0x3D, 0x20, 0xFD}); // dec a, jr back while not zero
    p.ret();
}

/// While the beam draws the lake, every line is moved sideways by its own place in a wave.
void rippleRoutine(Assembler &p)
{
    p.label("ripple");
    p.ld(a, hardware::line);
    p.cp(Scene::waterLine - 1);
    p.jr(ifNotZero, "ripple");
    p.ld(hl, "waves");
    p.label("next line");
    p.ld(a, hardware::line);
    p.cp(Scene::barLine - 2); // the line of light above the bar stands still
    p.jr(ifNoCarry, "last line");
    p.add(a);
    p.add(a);
    p.ld(b, a);
    p.ld(a, frame);
    p.add(b);
    p.And(63);
    p.ld(l, a);
    p.ld(b, atHL);
    p.label("wait for the beam's return");
    p.ld(a, hardware::displayState);
    p.And(3);
    p.jr(ifNotZero, "wait for the beam's return");
    p.ld(a, b);
    p.ld(hardware::scrollX, a);
    p.label("wait for the beam");
    p.ld(a, hardware::displayState);
    p.And(3);
    p.jr(ifZero, "wait for the beam");
    p.jr("next line");
    p.label("last line");
    p.ld(a, hardware::displayState);
    p.And(3);
    p.jr(ifNotZero, "last line");
    p.ld(hardware::scrollX, a);
    p.ret();
}

Bytes waves()
{
    Bytes table;
    for (int i = 0; i < 64; ++i)
        table.push_back(std::uint8_t(std::lround(2.4 * std::sin(2 * M_PI * i / 64))));
    return table;
}

/// Ten rising notes of five tones each octave, as the low bytes of the tone's period from 0x700 on.
Bytes notes()
{
    Bytes table;
    for (const double frequency : {523.25, 587.33, 659.26, 783.99, 880.0, 1046.5, 1174.66, 1318.51, 1567.98, 1760.0})
        table.push_back(std::uint8_t(std::lround(2048 - 131072 / frequency) - 0x700));
    return table;
}

void data(Assembler &p)
{
    const Scene scene = drawScene();
    const auto mapRows = [&](int from, int to, bool palettes) {
        for (int row = from; row < to; ++row) {
            const auto &tiles = scene.map[row];
            p.bytes(palettes ? Bytes(Scene::columns, scene.palettes[row]) : Bytes(tiles.begin(), tiles.end()));
        }
    };
    p.alignTo(256);
    p.label("waves"); // at the start of a page: its low byte alone is the place in the wave
    p.bytes(waves());
    p.label("notes");
    p.bytes(notes());
    p.label("new progress");
    p.bytes({'V', 'L', 'K', 'O', 1, 0, 0, 0, 0, 0, 0, 0});
    p.label("first lanterns");
    p.bytes({1, 40, 84, 0, 1, 120, 60, 0, 1, 70, 40, 0, 1, 140, 96, 0});
    p.label("background colours");
    p.bytes(scene.backgroundPalettes);
    p.label("object colours");
    p.bytes(scene.objectPalettes);
    p.label("map");
    mapRows(0, Scene::barRow, false);
    p.label("bar map");
    mapRows(Scene::barRow, Scene::rows, false);
    p.label("palettes");
    mapRows(0, Scene::barRow, true);
    p.label("bar palettes");
    mapRows(Scene::barRow, Scene::rows, true);
    p.label("tiles");
    p.bytes(scene.tiles);
}

}

LanternsGame buildLanterns()
{
    Assembler p(programStart);
    start(p);
    mainLoop(p);
    copyRoutines(p);
    addProgress(p);
    addMovement(p);
    rippleRoutine(p);
    data(p);

    LanternsGame game;
    game.rom = cartridge("LANTERNS", p.finish());
    game.problems = p.problems();
    if (!drawScene().fits()) game.problems.push_back("the picture needs more than 256 tiles");
    if (game.rom.empty()) game.problems.push_back("the program is too large");
    return game;
}
