#include "emulators/settings/EmulatorSetUp.h"

#include "emulators/controllers/ControllerClass.h"
#include "emulators/controllers/ControllerMapping.h"
#include "emulators/finding/RunningEmulators.h"

namespace {
/// Everything that one file gets.
struct Batch {
    FileEdits file;
    BackUp backUp = BackUp::no;
    bool quiets = false;
};

Batch &batchOf(QList<Batch> &batches, const FileEdits &edits)
{
    for (Batch &batch : batches) {
        if (batch.file.file == edits.file) return batch;
    }
    batches += Batch{{edits.file, edits.format, {}}};
    return batches.last();
}

void add(QList<Batch> &batches, const FileEdits &edits)
{
    if (!edits.file.isEmpty() && !edits.edits.isEmpty()) batchOf(batches, edits).file.edits += edits.edits;
}

/// Not while the emulator runs: it would write its own settings over ours when it ends.
QList<FileEdits> quietNow(const SetUpOrder &order, const ProcessControl &processes)
{
    const SettingsWish &wish = order.wish;
    QList<FileEdits> all = quietEdits(wish.emulatorID, wish.host, wish.folders);
    all.removeIf([&order](const FileEdits &edits) {
        return edits.file.isEmpty() || order.notes.journal.quieted.contains(edits.file);
    });
    const bool runs = !all.isEmpty() && !processesOf(wish.emulatorID, wish.host, processes.running()).isEmpty();
    return runs ? QList<FileEdits>() : all;
}

QList<Batch> batchesOf(const SetUpOrder &order, const ProcessControl &processes)
{
    const SettingsWish &wish = order.wish;
    QList<Batch> batches;
    const FileEdits settings = settingsEdits(wish);
    if (order.mapsController && controllerClass(wish.emulatorID) == ControllerClass::automatic) {
        add(batches, {settings.file, settings.format, controllerEdits(wish.emulatorID, wish.host)});
        batchOf(batches, settings).backUp = BackUp::once;
    }
    add(batches, settings);
    add(batches, gameFileEdits(wish));
    add(batches, order.found);
    if (wish.emulatorID == QLatin1String("rpcs3") && order.vblankRate) {
        add(batches, vblankRateEdits(settings.file, *order.vblankRate));
        FileEdits ofGame = vblankRateEdits(wish.gameFile, *order.vblankRate);
        if (order.vblankRate == usualVblankRate)
            ofGame.edits.first().how = ConfigEdit::How::putBack; // it may be the user's own
        add(batches, ofGame);
    }
    for (const FileEdits &quiet : quietNow(order, processes)) {
        add(batches, quiet);
        batchOf(batches, quiet).backUp = BackUp::once;
        batchOf(batches, quiet).quiets = true;
    }
    return batches;
}
}

SetUpOutcome setUpEmulator(const SetUpOrder &order, const ProcessControl &processes)
{
    using Outcome = ConfigFileEdit::Outcome;
    const SettingsWish &wish = order.wish;
    const QString settings = settingsFile(wish.emulatorID, wish.folders);
    SetUpOutcome outcome{.notes = order.notes};
    for (const Batch &batch : batchesOf(order, processes)) {
        const ConfigFileEdit edit = editNoted(batch.file, wish.emulatorID, outcome.notes, batch.backUp);
        if (edit.outcome == Outcome::failed) outcome.failures += edit.why;
        if (edit.outcome == Outcome::failed || edit.outcome == Outcome::missing) continue;
        if (batch.quiets)
            outcome.notes.add({.changed = {}, .gone = {}, .quieted = {{batch.file.file, order.notes.now}}});
        if (batch.file.file != settings) continue;
        outcome.controllerMapped =
            order.mapsController && controllerClass(wish.emulatorID) == ControllerClass::automatic;
        outcome.vblankRate = order.vblankRate;
    }
    return outcome;
}
