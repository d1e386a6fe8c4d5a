#pragma once

#include "platform/Accessibility.h"
#include "platform/linux/AtspiBus.h"

/// Reads programs' windows and menus from the accessibility bus, level by level: all questions about a level are under
/// way at once. For background threads.
class AtspiReader {
public:
    explicit AtspiReader(AtspiBus &bus) : m_bus(bus) { }

    /// The programs that these processes have on the bus; nothing at all on a bus that nobody has come to yet.
    std::optional<QList<AtspiNode>> programs(const QList<qint64> &pids);
    QList<AccessibleWindow> windows(const QList<AtspiNode> &programs);
    QList<MenuEntry> menu(const QList<AtspiNode> &programs, const QStringList &opened);
    bool press(const MenuEntry &entry);

private:
    /// A node of a menu while it is read.
    struct Item {
        AtspiNode node;
        qsizetype parent = -1; ///< index in the list of all; -1: the menu bar
        int depth = 0;
        QString title;
        bool enabled = false;
        QStringList actions;
        QList<qsizetype> children;
    };

    QList<AtspiNode> childrenOf(const QList<AtspiNode> &nodes);
    bool hasButton(const AtspiNode &window);
    QList<AtspiNode> menuBars(const QList<AtspiNode> &programs);
    void read(QList<Item> &items, qsizetype from);
    void append(QList<Item> &items, const QList<AtspiNode> &nodes, qsizetype parent);
    void open(QList<Item> &items, const QStringList &titles);
    static QList<QDBusMessage> actionsTo(const QList<Item> &items, qsizetype menu);

    AtspiBus &m_bus;
};
