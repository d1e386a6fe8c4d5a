#include "play/states/StateTalk.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr auto limit = 2s;
static constexpr qsizetype longest = 256 * 1024; // of anything that is said; the answers have some bytes

static bool isOneOf(const LocalConnection &connection, const QList<qint64> &pids)
{
    return connection.peer() == 0 || pids.contains(connection.peer());
}

// PINE: a length that counts itself, then the operation. The answer has the same form.

static QByteArray pineFrame(quint8 operation, const QByteArray &arguments)
{
    QByteArray frame(4, '\0');
    qToLittleEndian<quint32>(quint32(5 + arguments.size()), frame.data());
    frame += char(operation);
    return frame + arguments;
}

/// The first byte of a whole answer: 0 for done. Nothing for half an answer or one of a wrong length.
static std::optional<quint8> pineAnswer(LocalConnection &connection)
{
    QByteArray answer;
    qsizetype length = 5; // at least
    while (answer.size() < length) {
        const QByteArray more = connection.receive();
        if (more.isEmpty()) return {};
        answer += more;
        if (answer.size() < 4) continue;
        length = qFromLittleEndian<quint32>(answer.constData());
        if (length < 5 || length > longest) return {};
    }
    return quint8(answer[4]);
}

bool talkToPine(LocalSockets &sockets, const LocalAddress &address, const QList<qint64> &pids, StateCommand command)
{
    const auto connection = sockets.open(address, limit);
    if (!connection || !isOneOf(*connection, pids)) return false;
    const quint8 operation = command == StateCommand::save ? 0x09 : 0x0a;
    const QByteArray slot(1, '\x01');
    return connection->send(pineFrame(operation, slot)) && pineAnswer(*connection) == 0;
}

bool talkToRetroArch(LocalSockets &sockets, const LocalAddress &address, StateCommand command)
{
    const auto connection = sockets.open(address, limit);
    if (!connection || !connection->send("GET_STATUS")) return false;
    const QByteArray status = connection->receive();
    if (!status.startsWith("GET_STATUS PLAYING") && !status.startsWith("GET_STATUS PAUSED")) return false;
    return connection->send(command == StateCommand::save ? "SAVE_STATE" : "LOAD_STATE");
}

// QMP: one JSON object in each line. Events come in between.

/// What the other side returns; nothing for an error.
static std::optional<QJsonValue> qmpReturn(LocalConnection &connection, QByteArray &heard)
{
    for (;;) {
        for (qsizetype end = heard.indexOf('\n'); end >= 0; end = heard.indexOf('\n')) {
            const QJsonObject line = QJsonDocument::fromJson(heard.first(end)).object();
            heard.remove(0, end + 1);
            if (line.contains("error"_L1)) return {};
            if (line.contains("return"_L1)) return line.value("return"_L1);
        }
        const QByteArray more = connection.receive();
        if (more.isEmpty() || heard.size() > longest) return {};
        heard += more;
    }
}

static QByteArray qmpCommand(const QString &name, const QJsonObject &arguments = {})
{
    QJsonObject command{{u"execute"_s, name}};
    if (!arguments.isEmpty()) command.insert(u"arguments"_s, arguments);
    return QJsonDocument(command).toJson(QJsonDocument::Compact) + '\n';
}

bool talkToQmp(LocalSockets &sockets, const LocalAddress &address, const QList<qint64> &pids, StateCommand command,
               const QString &snapshot)
{
    const auto connection = sockets.open(address, limit);
    if (!connection || !isOneOf(*connection, pids)) return false;
    QByteArray heard;
    if (!connection->send(qmpCommand(u"qmp_capabilities"_s)) || !qmpReturn(*connection, heard)) return false;
    const QString line = (command == StateCommand::save ? u"savevm "_s : u"loadvm "_s) + snapshot;
    if (!connection->send(qmpCommand(u"human-monitor-command"_s, {{u"command-line"_s, line}}))) return false;
    // It prints what went wrong, and nothing otherwise.
    const auto printed = qmpReturn(*connection, heard);
    return printed && printed->toString().trimmed().isEmpty();
}
