#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>
#include <memory>

/// Where a program of this machine listens: at a socket in the file system or, without one, at a UDP port.
struct LocalAddress {
    QString path;
    quint16 port = 0; ///< UDP, of this machine alone
    bool operator==(const LocalAddress &) const = default;
};

/// A talk with another program. It ends with its time limit, whatever the other one does.
class LocalConnection {
public:
    virtual ~LocalConnection() = default;
    virtual qint64
    peer() const = 0; ///< the process that listened, as this machine numbers it; 0: not known, as with UDP
    virtual bool send(const QByteArray &bytes) = 0;
    /// What comes next: of a socket in the file system some bytes, 64 KiB at most, of a port one message. Empty when
    /// the time is over or the other end has gone.
    virtual QByteArray receive() = 0;
};

/// Talks with programs of this machine. Blocks up to the time limit: call it in the background. Safe from any thread.
class LocalSockets {
public:
    virtual ~LocalSockets() = default;
    /// Nothing when nobody listens. `limit` is the time for the whole talk.
    virtual std::unique_ptr<LocalConnection> open(const LocalAddress &address, std::chrono::milliseconds limit) = 0;
};
