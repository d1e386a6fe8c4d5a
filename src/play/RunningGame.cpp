#include "play/RunningGame.h"

#include "catalog/EmulatorDef.h"

RunningGame runningGame(const QString &gameID, const QString &title, const StartedGame &program, Host host,
                        const QDateTime &start)
{
    const EmulatorDef *emulator = emulatorWithID(program.engine, host);
    return {gameID, title, program.pid, program.engine, emulator ? emulator->name : title, start};
}
