#pragma once

#include <QString>

/// Where the words of a command go: this process's own terminal, or another's that handed its request over.
class CommandOutput {
public:
    virtual ~CommandOutput() = default;
    virtual void print(const QString &text) = 0; ///< standard output; ends its own lines
    virtual void printError(const QString &text) = 0; ///< standard error
    virtual void finish(int exitStatus) = 0; ///< once, last
};
