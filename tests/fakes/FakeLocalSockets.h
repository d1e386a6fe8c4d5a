#pragma once

#include "platform/LocalSockets.h"

#include <QHash>
#include <functional>

/// Programs that listen: each answers a message with another, an empty one says nothing.
class FakeLocalSockets final : public LocalSockets {
public:
    struct Program {
        std::function<QByteArray(const QByteArray &)> answer;
        qint64 pid = 0;
        QByteArray greeting; ///< said before it is asked
        qsizetype piece = 64 * 1024; ///< what it says comes in pieces of this size
    };
    QHash<QString, Program> atPath;
    QHash<quint16, Program> atPort;

    std::unique_ptr<LocalConnection> open(const LocalAddress &address, std::chrono::milliseconds) override
    {
        const bool byPath = !address.path.isEmpty();
        if (byPath ? !atPath.contains(address.path) : !atPort.contains(address.port)) return nullptr;
        return std::make_unique<Connection>(byPath ? atPath[address.path] : atPort[address.port]);
    }

private:
    struct Connection final : LocalConnection {
        explicit Connection(const Program &program) : other(program), coming(program.greeting) { }
        qint64 peer() const override { return other.pid; }
        bool send(const QByteArray &bytes) override
        {
            coming += other.answer(bytes);
            return true;
        }
        QByteArray receive() override
        {
            const QByteArray piece = coming.first(qMin(other.piece, coming.size()));
            coming.remove(0, piece.size());
            return piece;
        }
        Program other;
        QByteArray coming;
    };
};
