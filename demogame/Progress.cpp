#include "Routines.h"

#include "Memory.h"
#include "Scene.h"

using namespace sm83;

namespace {

/// The memory of the cartridge is open only while it is used, so that a crash or a pulled plug leaves it alone.
void cartridgeMemory(Assembler &p, bool open)
{
    p.ld(a, open ? 0x0A : 0);
    p.ld(hardware::cartridgeMemorySwitch, a);
}

void loadAndSave(Assembler &p)
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
    p.ld(hl, progress);
    p.ld(de, "new progress");
    p.ld(bc, progressSize);
    p.call("copy");
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

void counters(Assembler &p)
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

}

void addProgress(Assembler &p)
{
    loadAndSave(p);
    counters(p);
}
