#include "Lanterns.h"

#include "Cartridge.h"
#include "Scene.h"

#include <cmath>

using namespace sm83;

namespace {

namespace hardware {
constexpr At keys{0xFF00}, interruptsWaiting{0xFF0F}, interruptsWanted{0xFFFF};
constexpr At toneSweep{0xFF10}, toneDuty{0xFF11}, toneEnvelope{0xFF12}, toneLow{0xFF13}, toneHigh{0xFF14};
constexpr At volume{0xFF24}, speakers{0xFF25}, sound{0xFF26};
constexpr At display{0xFF40}, displayState{0xFF41}, scrollY{0xFF42}, scrollX{0xFF43}, line{0xFF44}, copyObjects{0xFF46};
constexpr At greys{0xFF47}, objectGreys{0xFF48}, objectGreys1{0xFF49}, windowY{0xFF4A}, windowX{0xFF4B};
constexpr At videoBank{0xFF4F}, colourIndex{0xFF68}, colour{0xFF69}, objectColourIndex{0xFF6A}, objectColour{0xFF6B};
constexpr At cartridgeMemorySwitch{0x0000};
constexpr int tiles = 0x8000, map = 0x9800, windowMap = 0x9C00, cartridgeMemory = 0xA000;
}

// Places on screen are those of the video chip's object table: 8 more than the pixel across, 16 more than the pixel
// down.
constexpr int objects = 0xC000, variables = 0xC0A0, lanterns = 0xC100, copyRoutine = 0xFF80;
constexpr int lanternCount = 10; // each: lit or not, x, y, fraction of y
constexpr At isColour{variables}, held{variables + 1}, pressed{variables + 2}, ownX{variables + 3}, ownY{variables + 4};
constexpr At nextLantern{variables + 5}, objectX{variables + 6};

// What the battery keeps, in this order: "VLKO", version, evenings (two decimal digits), lanterns lit (four decimal
// digits), frames played (32 bits, low byte first).
constexpr int progress = 0xC0B0, progressSize = 12, progressMark = 5;
constexpr At evenings{progress + 5}, litHigh{progress + 6}, litLow{progress + 7}, frame{progress + 8};

constexpr int keyRight = 4, keyLeft = 5, keyUp = 6, keyDown = 7, keyA = 0;
constexpr int hidden = 0;

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

/// The memory of the cartridge is open only while it is used, so that a crash or a pulled plug leaves it alone.
void cartridgeMemory(Assembler &p, bool open)
{
    p.ld(a, open ? 0x0A : 0);
    p.ld(hardware::cartridgeMemorySwitch, a);
}

void progressRoutines(Assembler &p)
{
    p.label("load progress");
    cartridgeMemory(p, true);
    p.ld(hl, progress);
    p.ld(de, hardware::cartridgeMemory);
    p.ld(bc, progressSize);
    p.call("copy");
    cartridgeMemory(p, false);
    p.ld(hl, progress);
    p.ld(de, "new progress");
    p.ld(b, progressMark);
    p.label("compare mark");
    p.ldFromDE();
    p.cp(atHL);
    p.jr(ifNotZero, "begin anew");
    p.inc(hl);
    p.inc(de);
    p.dec(b);
    p.jr(ifNotZero, "compare mark");
    p.jr("next evening");
    p.label("begin anew");
    copy(p, progress, "new progress", progressSize);
    p.label("next evening");
    p.ld(a, evenings);
    p.add(1);
    p.daa();
    p.ld(evenings, a);

    p.label("save progress");
    cartridgeMemory(p, true);
    p.ld(hl, hardware::cartridgeMemory);
    p.ld(de, progress);
    p.ld(bc, progressSize);
    p.call("copy");
    cartridgeMemory(p, false);
    p.ret();

    // Saved every 64 frames: mGBA writes its file once the game has left the memory alone for a quarter of a second.
    p.label("count frame");
    p.ld(hl, int(frame.address));
    for (int i = 0; i < 3; ++i) {
        p.inc(atHL);
        p.jr(ifNotZero, "counted");
        p.inc(hl);
    }
    p.inc(atHL);
    p.label("counted");
    p.ld(a, frame);
    p.And(63);
    p.jr(ifZero, "save progress");
    p.ret();
}

void counterRoutines(Assembler &p)
{
    p.label("show counters");
    p.ld(hl, hardware::windowMap + 7);
    p.ld(a, litHigh);
    p.call("show two digits");
    p.ld(a, litLow);
    p.call("show two digits");
    p.ld(hl, hardware::windowMap + 18);
    p.ld(a, evenings);

    p.label("show two digits");
    p.ld(b, a);
    p.swap(a);
    p.call("show digit");
    p.ld(a, b);

    p.label("show digit");
    p.And(15);
    p.add(a);
    p.add(Scene::digits);
    p.push(hl);
    p.ld(de, Scene::columns);
    p.ld(atHL, a);
    p.addHL(de);
    p.inc(a);
    p.ld(atHL, a);
    p.pop(hl);
    p.inc(hl);
    p.ret();
}

void keyRoutine(Assembler &p)
{
    p.label("read keys");
    p.ld(a, 0x20); // the directions
    p.ld(hardware::keys, a);
    p.ld(a, hardware::keys);
    p.ld(a, hardware::keys);
    p.cpl();
    p.And(15);
    p.swap(a);
    p.ld(b, a);
    p.ld(a, 0x10); // the buttons; the lines need a moment to settle
    p.ld(hardware::keys, a);
    for (int i = 0; i < 4; ++i)
        p.ld(a, hardware::keys);
    p.cpl();
    p.And(15);
    p.Or(b);
    p.ld(b, a);
    p.ld(a, held);
    p.cpl();
    p.And(b);
    p.ld(pressed, a);
    p.ld(a, b);
    p.ld(held, a);
    p.ret();
}

/// One step of `place` while `key` is held, not beyond `limit`.
void step(Assembler &p, int key, At place, int by, int limit)
{
    const std::string done = "no step by key " + std::to_string(key);
    p.bit(key, b);
    p.jr(ifZero, done);
    p.ld(a, place);
    p.cp(limit);
    p.jr(ifZero, done);
    p.add(by);
    p.ld(place, a);
    p.label(done);
}

void ownLanternRoutines(Assembler &p)
{
    p.label("move own lantern");
    p.ld(a, held);
    p.ld(b, a);
    step(p, keyRight, ownX, 1, 148);
    step(p, keyLeft, ownX, -1, 12);
    step(p, keyUp, ownY, -1, 20);
    step(p, keyDown, ownY, 1, 126);
    p.ret();

    p.label("light lantern");
    p.ld(a, litLow);
    p.add(1);
    p.daa();
    p.ld(litLow, a);
    p.ld(a, litHigh);
    p.adc(0);
    p.daa();
    p.ld(litHigh, a);
    p.ld(a, nextLantern);
    p.ld(c, a);
    p.inc(a);
    p.cp(lanternCount);
    p.jr(ifNotZero, "place in the ring");
    p.ld(a, 0);
    p.label("place in the ring");
    p.ld(nextLantern, a);
    p.ld(a, c);
    p.add(a);
    p.add(a);
    p.ld(l, a);
    p.ld(h, lanterns >> 8);
    p.ld(a, 1);
    p.ldNext(hl, a);
    p.ld(a, ownX);
    p.add(4);
    p.ldNext(hl, a);
    p.ld(a, ownY);
    p.sub(6);
    p.ldNext(hl, a);
    p.ld(b, 0);
    p.ld(hl, "notes");
    p.addHL(bc);
    p.ld(a, 0);
    p.ld(hardware::toneSweep, a);
    p.ld(a, 0x80);
    p.ld(hardware::toneDuty, a);
    p.ld(a, 0x95); // loud, dying away
    p.ld(hardware::toneEnvelope, a);
    p.ld(a, atHL);
    p.ld(hardware::toneLow, a);
    p.ld(a, 0x87); // start; all notes lie in the highest part
    p.ld(hardware::toneHigh, a);
    p.jp("save progress");

    p.label("draw own lantern");
    p.ld(hl, objects);
    p.ld(a, ownY);
    p.ld(c, a);
    p.ld(a, ownX);
    p.ld(b, a);
    p.ld(d, Scene::ownLantern);
    p.ld(e, 0);
    p.call("draw pair");
    p.call("mirror");
    p.ld(a, b);
    p.sub(8);
    p.ld(b, a);
    p.ld(d, Scene::ownReflection);
    p.ld(e, 3);

    p.label("draw pair"); // y in C, x in B (8 more afterwards), tile in D, palette in E
    p.call("draw object");
    p.inc(d);
    p.inc(d);
    p.ld(a, b);
    p.add(8);
    p.ld(b, a);

    p.label("draw object");
    p.ld(a, c);
    p.ldNext(hl, a);
    p.ld(a, b);
    p.ldNext(hl, a);
    p.ld(a, d);
    p.ldNext(hl, a);
    p.ld(a, e);
    p.ldNext(hl, a);
    p.ret();

    // Turns the y in C into that of the reflection: hidden when it would lie under the thing or behind the bar.
    p.label("mirror");
    p.ld(a, 2 * Scene::waterLine + 16);
    p.sub(c);
    p.ld(c, hidden);
    p.cp(Scene::waterLine + 8);
    p.ret(ifCarry);
    p.cp(Scene::barLine + 1);
    p.ret(ifNoCarry);
    p.ld(c, a);
    p.ret();
}

void lanternRoutines(Assembler &p)
{
    p.label("move lanterns");
    p.ld(de, lanterns);
    p.ld(hl, objects + 4 * 4);
    p.ld(b, lanternCount);
    p.label("each lantern");
    p.push(bc);
    p.call("move lantern");
    p.pop(bc);
    p.dec(b);
    p.jr(ifNotZero, "each lantern");
    p.ret();

    p.label("move lantern"); // DE at it, HL at its two objects, its number in B; both pointers move on
    p.ldFromDE();
    p.Or(a);
    p.jr(ifZero, "not lit");
    p.inc(de);
    p.inc(de);
    p.inc(de);
    p.ld(a, b); // each has its own speed
    p.add(a);
    p.add(a);
    p.add(a);
    p.add(32);
    p.ld(c, a);
    p.ldFromDE();
    p.sub(c);
    p.ldToDE();
    p.dec(de);
    p.ldFromDE();
    p.sbc(0);
    p.ldToDE();
    p.dec(de);
    p.ld(c, a);
    p.cp(2);
    p.jr(ifNoCarry, "in the sky");
    p.inc(de); // gone: the next one rises from the lake, somewhere else
    p.ld(a, Scene::waterLine + 8);
    p.ldToDE();
    p.ld(c, a);
    p.dec(de);
    p.ldFromDE();
    p.add(53);
    p.And(127);
    p.add(20);
    p.ldToDE();
    p.label("in the sky");

    p.push(hl);
    p.ld(hl, "waves");
    p.ld(a, b);
    p.swap(a);
    p.ld(l, a);
    p.ld(a, frame);
    p.srl(a);
    p.add(l);
    p.And(63);
    p.ld(l, a);
    p.ldFromDE();
    p.add(atHL);
    p.pop(hl);
    p.inc(de);
    p.inc(de);
    p.inc(de);
    p.push(de);
    p.ld(d, Scene::skyLantern);
    p.push(bc);
    p.ld(objectX, a);
    p.ld(a, b);
    p.And(3);
    p.cp(3);
    p.jr(ifNotZero, "has a colour");
    p.ld(a, 0);
    p.label("has a colour");
    p.ld(e, a);
    p.ld(a, objectX);
    p.ld(b, a);
    p.call("draw object");
    p.call("mirror");
    p.ld(d, Scene::reflection);
    p.ld(e, 3);
    p.call("draw object");
    p.pop(bc);
    p.pop(de);
    p.ret();

    p.label("not lit");
    p.ld(a, hidden);
    for (int i = 0; i < 8; ++i)
        p.ldNext(hl, a);
    for (int i = 0; i < 4; ++i)
        p.inc(de);
    p.ret();
}

constexpr std::uint8_t twinklingStars[][2] = {{28, 24}, {40, 60}, {22, 92}, {50, 108}, {30, 160}, {58, 28}};

void starRoutine(Assembler &p)
{
    p.label("twinkle");
    p.ld(hl, objects + (4 + 2 * lanternCount) * 4);
    for (std::size_t i = 0; i < std::size(twinklingStars); ++i) {
        const std::string shown = "star " + std::to_string(i);
        p.ld(c, hidden);
        p.ld(a, frame);
        p.add(int(i) * 44);
        p.And(0xC0);
        p.jr(ifZero, shown);
        p.ld(c, twinklingStars[i][0]);
        p.label(shown);
        p.ld(b, twinklingStars[i][1]);
        p.ld(d, Scene::star);
        p.ld(e, 4);
        p.call("draw object");
    }
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
    progressRoutines(p);
    counterRoutines(p);
    keyRoutine(p);
    ownLanternRoutines(p);
    lanternRoutines(p);
    starRoutine(p);
    rippleRoutine(p);
    data(p);

    LanternsGame game;
    game.rom = cartridge("LANTERNS", p.finish());
    game.problems = p.problems();
    if (!drawScene().fits()) game.problems.push_back("the picture needs more than 256 tiles");
    if (game.rom.empty()) game.problems.push_back("the program is too large");
    return game;
}
