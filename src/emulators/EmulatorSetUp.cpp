#include "emulators/EmulatorSetUp.h"

#include "emulators/ConfigFile.h"
#include "emulators/ControllerClass.h"
#include "emulators/ControllerMapping.h"
#include "emulators/RunningEmulators.h"

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

QList<Batch> batchesOf(const SetUpOrder &order, bool emulatorRuns)
{
    const SettingsWish &wish = order.wish;
    QList<Batch> batches;
    const FileEdits settings = settingsEdits(wish);
    if (order.mapsController && controllerClass(wish.emulatorID) == ControllerClass::automatic) {
        add(batches, {settings.file, settings.format, controllerEdits(wish.emulatorID, wish.host)});
        batchOf(batches, settings).backUp = BackUp::once;
    }
    add(batches, settings);
    if (wish.emulatorID == QLatin1String("rpcs3") && order.vblankRate)
        add(batches, vblankRateEdits(wish.folders, *order.vblankRate));
    if (emulatorRuns) return batches; // it would write its own settings over ours when it ends
    for (const FileEdits &quiet : quietEdits(wish.emulatorID, wish.host, wish.folders)) {
        if (quiet.file.isEmpty() || order.journal.quieted.contains(quiet.file)) continue;
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
    const bool runs = !processesOf(wish.emulatorID, wish.host, processes.running()).isEmpty();
    const QString settings = settingsFile(wish.emulatorID, wish.folders);
    SetUpOutcome outcome;
    for (const Batch &batch : batchesOf(order, runs)) {
        JournalUpdate update;
        const ConfigFileEdit edit = editConfigFile(
            batch.file.file,
            [&](const QByteArray &text) {
                update = {};
                return edited(text, batch.file, wish.emulatorID, order.now, order.journal, update);
            },
            batch.backUp);
        if (edit.outcome == Outcome::failed) outcome.failures += edit.why;
        if (edit.outcome == Outcome::failed || edit.outcome == Outcome::missing) continue;
        outcome.update.changed += update.changed;
        outcome.update.gone += update.gone;
        if (batch.quiets) outcome.update.quieted.insert(batch.file.file, order.now);
        if (batch.file.file != settings) continue;
        outcome.controllerMapped =
            order.mapsController && controllerClass(wish.emulatorID) == ControllerClass::automatic;
        outcome.vblankRate = order.vblankRate;
    }
    return outcome;
}
