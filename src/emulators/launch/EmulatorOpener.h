#pragma once

#include "base/Result.h"
#include "emulators/finding/InstalledEmulator.h"
#include "platform/Places.h"

#include <QHash>
#include <QObject>

/// Opens emulators on their own, without a game, so that the user can set something in them. Main thread only; what it
/// is given outlives it. What it opened runs on when it goes.
class EmulatorOpener : public QObject {
    Q_OBJECT
public:
    EmulatorOpener(const Places &places, Workspace &workspace, QObject *parent = nullptr);

    Result<void> open(const InstalledEmulator &copy);
    bool isOpen(const QString &emulatorID) const; ///< opened from here, and not ended yet

signals:
    void changed();

private:
    Places m_places;
    Workspace &m_workspace;
    QHash<qint64, QString> m_open; ///< emulator by process
};
