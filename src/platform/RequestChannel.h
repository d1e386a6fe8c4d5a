#pragma once

#include "base/Result.h"

#include <QObject>
#include <QStringList>
#include <memory>

/// What a `velko` asks of the one that owns the library.
struct Request {
    QStringList arguments; ///< of the command line, without the program's name
    QString workingFolder; ///< that relative paths among them count from
    bool operator==(const Request &) const = default;
};

/// The owner's answer to one request; may be kept for hours. Once whoever asked has gone, nothing happens any more.
/// Destroying it without `finish` finishes with 1.
class RequestAnswer {
public:
    virtual ~RequestAnswer() = default;
    virtual void print(const QString &text) = 0; ///< to standard output, as it stands
    virtual void printError(const QString &text) = 0; ///< to standard error, as it stands
    virtual void finish(int status) = 0; ///< with this exit status; further words are dropped
};

/// One library, one owner: the first process claims it, another sends its request to the owner and passes on what
/// comes back. Main thread only.
class RequestChannel : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// True: this process is the owner, until the channel is destroyed or the process ends in any way. False: another
    /// one is. A failure means that nobody can tell.
    virtual Result<bool> claim() = 0;

    /// Asks the owner. `printed` and `errorPrinted` follow, then `finished` or `failed`. Once in a channel's life.
    virtual void send(const Request &request) = 0;

signals:
    void requested(const Request &request, const std::shared_ptr<RequestAnswer> &answer); ///< to the owner

    void printed(const QString &text);
    void errorPrinted(const QString &text);
    void finished(int status);
    void failed(const Message &message); ///< the owner cannot be reached, or has ended before it had finished
};
