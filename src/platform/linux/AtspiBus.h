#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QList>
#include <QSize>
#include <QString>

/// An accessible object of a program: a window, a menu, a button.
struct AtspiNode {
    QString service; ///< the program's name on the bus, which no other one gets after it
    QString path;
    bool operator==(const AtspiNode &) const = default;
};

/// The accessibility bus, for one question. For background threads: it waits, but never longer than its limit, and for
/// one silent program half a second.
class AtspiBus {
public:
    /// `address` is what an earlier one found; empty: the session bus is asked, at this address or at that of the
    /// environment.
    AtspiBus(const QString &address, const QString &sessionBus);
    ~AtspiBus();
    AtspiBus(const AtspiBus &) = delete;

    bool isOpen() const { return m_connection.isConnected(); }
    const QString &address() const { return m_address; }

    /// Asks everything at once, then collects the answers, in the order of the questions; what was not answered in time
    /// is an error message.
    QList<QDBusMessage> ask(const QList<QDBusMessage> &questions);
    bool hasTime() const { return !m_limit.hasExpired(); }

private:
    QString findAddress(const QString &sessionBus) const;

    QDeadlineTimer m_limit;
    QString m_name; ///< of the connection
    QString m_address;
    QDBusConnection m_connection;
};

namespace atspi {
// The numbers are those of the AT-SPI protocol.
enum Role : uint { alert = 2, dialog = 16, fileChooser = 19, frame = 23, menuBar = 34, pushButton = 43 };
enum State : uint { enabled = 8, sensitive = 24, visible = 30 };

QDBusMessage children(const AtspiNode &node);
QDBusMessage role(const AtspiNode &node);
QDBusMessage states(const AtspiNode &node);
QDBusMessage name(const AtspiNode &node);
QDBusMessage extents(const AtspiNode &node);
QDBusMessage actions(const AtspiNode &node);
QDBusMessage doFirstAction(const AtspiNode &node);
QDBusMessage processOf(const QString &service); ///< a question to the bus itself

// What an answer says; empty for an error and for what has another shape than it should.
QList<AtspiNode> nodesIn(const QDBusMessage &answer);
uint numberIn(const QDBusMessage &answer);
bool hasState(const QDBusMessage &answer, State state);
QString textIn(const QDBusMessage &answer); ///< without blanks at its ends
QSize sizeIn(const QDBusMessage &answer);
QStringList actionsIn(const QDBusMessage &answer);
bool isSilence(const QDBusMessage &answer); ///< no answer came in time
}
