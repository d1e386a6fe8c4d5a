#pragma once

#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>

/// What another call of the program wants done by the one that owns the library.
struct Request {
    QStringList arguments; ///< without the program's name
    QString workingFolder;
    bool operator==(const Request &) const = default;
};

/// The way back to the one who asked. Answers to somebody who has left go nowhere.
class Reply {
public:
    virtual ~Reply() = default;
    virtual void print(const QString &text) = 0;
    virtual void printError(const QString &text) = 0;
    virtual void finish(int exitStatus) = 0; ///< once, last
};

/// Where the words of the owner go on the asking side.
struct ReplyHandler {
    std::function<void(const QString &)> print;
    std::function<void(const QString &)> printError;
    std::function<void(int exitStatus)> finished; ///< once, last
    std::function<void()> lost; ///< the owner ended, or did not take the request in time, instead of finishing
};

/// One library, one owner: the first process claims it, and later ones hand it their requests. Main thread only.
class RequestChannel : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Whether this process owns the library now; holds until the channel is destroyed or the process ends in any way.
    virtual bool claim() = 0;

    /// Asks the owner. Its answers come from the event loop.
    virtual void ask(const Request &request, ReplyHandler handler) = 0;

signals:
    void requested(const Request &request, std::shared_ptr<Reply> reply); ///< at the owner
};
