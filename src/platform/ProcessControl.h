#pragma once

#include <QList>
#include <QString>
#include <QtGlobal>

/// A program that runs now.
struct RunningProcess {
    qint64 pid = 0;
    qint64 parent = 0;
    QString program; ///< file name of its program (argv[0] without folder when the file is not readable)
    bool operator==(const RunningProcess &) const = default;
};

/// Acts on running programs. Each command answers whether it reached the program: false means that it has ended or is
/// not ours, which callers treat as "already gone". Safe from any thread.
class ProcessControl {
public:
    virtual ~ProcessControl() = default;
    virtual QList<RunningProcess> running() const = 0; ///< the user's own processes
    /// The process and all its descendants, parents before children; empty when it has ended.
    virtual QList<qint64> tree(qint64 pid) const = 0;
    virtual bool isAlive(qint64 pid) const = 0; ///< a zombie is not alive
    virtual qint64 bytesWritten(qint64 pid) const = 0; ///< to disk, by it and its descendants that run, so far
    virtual void prepareToFreeze() { } ///< makes the first freeze as quick as the later ones
    virtual bool freeze(qint64 pid) = 0; ///< with all its descendants; freezing twice is harmless
    virtual bool thaw(qint64 pid) = 0; ///< with all its descendants and what `freeze` stopped
    virtual bool askToQuit(qint64 pid) = 0; ///< the program may refuse
    virtual bool kill(qint64 pid) = 0;
};
