#include "Routines.h"

#include "Memory.h"
#include "Scene.h"

using namespace sm83;

namespace {

void keys(Assembler &p)
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

void ownLantern(Assembler &p)
{
    p.label("move own lantern");
    p.ld(a, held);
    p.ld(b, a);
    step(p, keyRight, ownX, 1, 148);
    step(p, keyLeft, ownX, -1, 12);
    step(p, keyUp, ownY, -1, 20);
    step(p, keyDown, ownY, 1, 126);
    p.ret();
}

void lighting(Assembler &p)
{
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
}

void drawing(Assembler &p)
{
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

void risingLanterns(Assembler &p)
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

void stars(Assembler &p)
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

}

void addMovement(Assembler &p)
{
    keys(p);
    ownLantern(p);
    lighting(p);
    drawing(p);
    risingLanterns(p);
    stars(p);
}
