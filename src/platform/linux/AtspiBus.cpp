#include "platform/linux/AtspiBus.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <atomic>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr auto wholeLimit = 3s;
static constexpr int answerLimit = 500; // milliseconds; a stopped program never answers
static constexpr int startLimit = 1500; // for the bus itself, which is started by the question for its address
static constexpr qsizetype atOnce = 128; // questions under way; buses limit them

static QString freshName()
{
    static std::atomic<int> count = 0;
    return u"velko-accessibility-%1"_s.arg(++count);
}

AtspiBus::AtspiBus(const QString &address, const QString &sessionBus)
    : m_limit(wholeLimit), m_name(freshName()), m_address(address.isEmpty() ? findAddress(sessionBus) : address),
      m_connection(m_address.isEmpty() ? QDBusConnection(m_name) : QDBusConnection::connectToBus(m_address, m_name))
{ }

AtspiBus::~AtspiBus()
{
    QDBusConnection::disconnectFromBus(m_name);
}

QString AtspiBus::findAddress(const QString &sessionBus) const
{
    const QString name = m_name + u"-session"_s;
    QString address;
    {
        const auto session = sessionBus.isEmpty() ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)
                                                  : QDBusConnection::connectToBus(sessionBus, name);
        const auto question =
            QDBusMessage::createMethodCall(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Bus"_s, u"GetAddress"_s);
        if (session.isConnected()) address = atspi::textIn(session.call(question, QDBus::Block, startLimit));
    }
    QDBusConnection::disconnectFromBus(name);
    return address;
}

QList<QDBusMessage> AtspiBus::ask(const QList<QDBusMessage> &questions)
{
    QList<QDBusMessage> answers;
    for (qsizetype first = 0; first < questions.size(); first += atOnce) {
        const auto limit = int(std::min<qint64>(answerLimit, std::max<qint64>(1, m_limit.remainingTime())));
        QList<QDBusPendingCall> calls;
        for (const QDBusMessage &question : questions.mid(first, atOnce))
            calls += m_connection.asyncCall(question, limit);
        for (QDBusPendingCall &call : calls) {
            call.waitForFinished();
            answers += call.reply();
        }
    }
    return answers;
}

namespace atspi {

static QDBusMessage call(const AtspiNode &node, const QString &interface, const QString &method)
{
    return QDBusMessage::createMethodCall(node.service, node.path, interface, method);
}

static QDBusMessage call(const AtspiNode &node, const QString &method)
{
    return call(node, u"org.a11y.atspi.Accessible"_s, method);
}

QDBusMessage children(const AtspiNode &node)
{
    return call(node, u"GetChildren"_s);
}

QDBusMessage role(const AtspiNode &node)
{
    return call(node, u"GetRole"_s);
}

QDBusMessage states(const AtspiNode &node)
{
    return call(node, u"GetState"_s);
}

QDBusMessage name(const AtspiNode &node)
{
    QDBusMessage question = call(node, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << u"org.a11y.atspi.Accessible"_s << u"Name"_s;
    return question;
}

QDBusMessage extents(const AtspiNode &node)
{
    QDBusMessage question = call(node, u"org.a11y.atspi.Component"_s, u"GetExtents"_s);
    question << uint(0); // on the screen
    return question;
}

QDBusMessage actions(const AtspiNode &node)
{
    return call(node, u"org.a11y.atspi.Action"_s, u"GetActions"_s);
}

QDBusMessage doFirstAction(const AtspiNode &node)
{
    QDBusMessage question = call(node, u"org.a11y.atspi.Action"_s, u"DoAction"_s);
    question << 0;
    return question;
}

QDBusMessage processOf(const QString &service)
{
    const AtspiNode bus{u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s};
    QDBusMessage question = call(bus, u"org.freedesktop.DBus"_s, u"GetConnectionUnixProcessID"_s);
    question << service;
    return question;
}

/// The structure that is the first argument of an answer; nothing when it is another one than expected.
static std::optional<QDBusArgument> structureIn(const QDBusMessage &answer, QLatin1StringView signature)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return {};
    const auto argument = answer.arguments()[0].value<QDBusArgument>();
    if (argument.currentSignature() != signature) return {};
    return argument;
}

QList<AtspiNode> nodesIn(const QDBusMessage &answer)
{
    QList<AtspiNode> all;
    const auto list = structureIn(answer, "a(so)"_L1);
    if (!list) return all;
    list->beginArray();
    while (!list->atEnd()) {
        AtspiNode node;
        QDBusObjectPath path;
        list->beginStructure();
        *list >> node.service >> path;
        list->endStructure();
        node.path = path.path();
        if (!node.service.isEmpty() && !node.path.endsWith("/null"_L1)) all += node;
    }
    list->endArray();
    return all;
}

uint numberIn(const QDBusMessage &answer)
{
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0).toUInt() : 0;
}

bool hasState(const QDBusMessage &answer, State state)
{
    const auto list = structureIn(answer, "au"_L1);
    if (!list) return false;
    quint64 bits = 0;
    int shift = 0;
    list->beginArray();
    while (!list->atEnd()) {
        uint word = 0;
        *list >> word;
        if (shift < 64) bits |= quint64(word) << shift;
        shift += 32;
    }
    list->endArray();
    return bits & (quint64(1) << state);
}

QString textIn(const QDBusMessage &answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage) return {};
    QVariant value = answer.arguments().value(0);
    if (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    return value.toString().trimmed();
}

QSize sizeIn(const QDBusMessage &answer)
{
    const auto rectangle = structureIn(answer, "(iiii)"_L1);
    if (!rectangle) return {};
    int x = 0, y = 0, width = 0, height = 0;
    rectangle->beginStructure();
    *rectangle >> x >> y >> width >> height;
    rectangle->endStructure();
    return {width, height};
}

QStringList actionsIn(const QDBusMessage &answer)
{
    QStringList all;
    const auto list = structureIn(answer, "a(sss)"_L1);
    if (!list) return all;
    list->beginArray();
    while (!list->atEnd()) {
        QString action, description, key;
        list->beginStructure();
        *list >> action >> description >> key;
        list->endStructure();
        all += action;
    }
    list->endArray();
    return all;
}

bool isSilence(const QDBusMessage &answer)
{
    return answer.type() == QDBusMessage::ErrorMessage
        && (answer.errorName() == "org.freedesktop.DBus.Error.NoReply"_L1
            || answer.errorName() == "org.freedesktop.DBus.Error.Timeout"_L1
            || answer.errorName() == "org.freedesktop.DBus.Error.TimedOut"_L1);
}

}
