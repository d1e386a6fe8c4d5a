#include "platform/linux/AtspiReader.h"

#include <QSet>
#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

// Programs that never end their trees are read no further than these.
static constexpr qsizetype mostPrograms = 256, mostNodes = 400, mostItems = 4000;
static constexpr int menuBarDepth = 4; // GTK nests it, Qt does not
static constexpr int menuDepth = 14; // seven menus, each an item and its list

std::optional<QList<AtspiNode>> AtspiReader::programs(const QList<qint64> &pids)
{
    const AtspiNode registry{u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/accessible/root"_s};
    const QList<AtspiNode> all = atspi::nodesIn(m_bus.ask({atspi::children(registry)})[0]).mid(0, mostPrograms);
    if (all.isEmpty()) return {};
    QList<QDBusMessage> questions;
    for (const AtspiNode &each : all)
        questions += atspi::processOf(each.service);
    const QList<QDBusMessage> answers = m_bus.ask(questions);
    QList<AtspiNode> found;
    for (qsizetype i = 0; i < all.size(); ++i) {
        if (pids.contains(atspi::numberIn(answers[i]))) found += all[i];
    }
    return found;
}

QList<AtspiNode> AtspiReader::childrenOf(const QList<AtspiNode> &nodes)
{
    QList<QDBusMessage> questions;
    for (const AtspiNode &each : nodes)
        questions += atspi::children(each);
    QList<AtspiNode> all;
    for (const QDBusMessage &answer : m_bus.ask(questions))
        all += atspi::nodesIn(answer).mid(0, mostNodes);
    return all;
}

static AccessibleWindow::Role roleOf(uint number)
{
    switch (number) {
    case atspi::alert:
        return AccessibleWindow::Role::alert;
    case atspi::dialog:
    case atspi::fileChooser:
        return AccessibleWindow::Role::dialog;
    case atspi::frame:
        return AccessibleWindow::Role::frame;
    default:
        return AccessibleWindow::Role::other;
    }
}

// Qt lists windows that are hidden, too.
QList<AccessibleWindow> AtspiReader::windows(const QList<AtspiNode> &programs)
{
    const QList<AtspiNode> nodes = childrenOf(programs).mid(0, mostNodes);
    QList<QDBusMessage> questions;
    for (const AtspiNode &each : nodes)
        questions += {atspi::role(each), atspi::name(each), atspi::extents(each), atspi::states(each)};
    const QList<QDBusMessage> answers = m_bus.ask(questions);
    QList<AccessibleWindow> all;
    for (qsizetype i = 0; i < nodes.size(); ++i) {
        const auto answer = answers.constBegin() + i * 4;
        if (!atspi::hasState(answer[3], atspi::visible)) continue;
        all += {roleOf(atspi::numberIn(answer[0])), atspi::textIn(answer[1]), atspi::sizeIn(answer[2]),
                hasButton(nodes[i])};
    }
    return all;
}

bool AtspiReader::hasButton(const AtspiNode &window)
{
    QList<AtspiNode> level{window};
    for (qsizetype seen = 0; !level.isEmpty() && seen < mostNodes && m_bus.hasTime(); seen += level.size()) {
        level = childrenOf(level).mid(0, mostNodes);
        QList<QDBusMessage> questions;
        for (const AtspiNode &each : level)
            questions += atspi::role(each);
        const QList<QDBusMessage> roles = m_bus.ask(questions);
        const auto isButton = [](const QDBusMessage &role) { return atspi::numberIn(role) == atspi::pushButton; };
        if (std::ranges::any_of(roles, isButton)) return true;
    }
    return false;
}

// Hidden windows count: Dolphin's menus belong to one while it plays.
QList<AtspiNode> AtspiReader::menuBars(const QList<AtspiNode> &programs)
{
    QList<AtspiNode> bars, level = childrenOf(programs);
    for (int depth = 0; depth < menuBarDepth && !level.isEmpty() && m_bus.hasTime(); ++depth) {
        level = childrenOf(level).mid(0, mostNodes);
        QList<QDBusMessage> questions;
        for (const AtspiNode &each : level)
            questions += atspi::role(each);
        const QList<QDBusMessage> roles = m_bus.ask(questions);
        for (qsizetype i = 0; i < level.size(); ++i) {
            if (atspi::numberIn(roles[i]) == atspi::menuBar) bars += level[i];
        }
        if (!bars.isEmpty()) break;
    }
    return bars;
}

void AtspiReader::append(QList<Item> &items, const QList<AtspiNode> &nodes, qsizetype parent)
{
    const int depth = parent < 0 ? 0 : items[parent].depth + 1;
    for (const AtspiNode &each : nodes) {
        if (items.size() >= mostItems || depth >= menuDepth) return;
        if (parent >= 0) items[parent].children += items.size();
        items += Item{.node = each, .parent = parent, .depth = depth};
    }
}

/// Reads the items from this index on, and what is below them, level by level.
void AtspiReader::read(QList<Item> &items, qsizetype from)
{
    while (from < items.size() && m_bus.hasTime()) {
        const qsizetype end = items.size();
        QList<QDBusMessage> questions;
        for (qsizetype i = from; i < end; ++i) {
            const AtspiNode &node = items[i].node;
            questions += {atspi::name(node), atspi::states(node), atspi::actions(node), atspi::children(node)};
        }
        const QList<QDBusMessage> answers = m_bus.ask(questions);
        for (qsizetype i = from; i < end; ++i) {
            const auto answer = answers.constBegin() + (i - from) * 4;
            items[i].title = atspi::textIn(answer[0]);
            items[i].enabled =
                atspi::hasState(answer[1], atspi::enabled) && atspi::hasState(answer[1], atspi::sensitive);
            items[i].actions = atspi::actionsIn(answer[2]);
            append(items, atspi::nodesIn(answer[3]), i);
        }
        from = end;
    }
}

/// Opens menus that are empty so far, reads them, and closes them again: the same action shows and hides.
void AtspiReader::open(QList<Item> &items, const QStringList &titles)
{
    const auto isMeant = [&](const QString &title) {
        const QString lower = title.toLower();
        return std::ranges::any_of(titles, [&](const QString &each) { return lower.contains(each); });
    };
    for (qsizetype i = 0; i < items.size() && m_bus.hasTime(); ++i) {
        const QList<qsizetype> lists = items[i].children;
        if (lists.size() != 1 || !items[lists[0]].children.isEmpty()) continue;
        if (!items[i].enabled || !isMeant(items[i].title)) continue;
        QList<QDBusMessage> actions = actionsTo(items, i);
        for (const QDBusMessage &each : actions)
            m_bus.ask({each});
        const qsizetype before = items.size();
        append(items, childrenOf({items[lists[0]].node}), lists[0]);
        read(items, before);
        std::ranges::reverse(actions);
        for (const QDBusMessage &each : actions)
            m_bus.ask({each});
    }
}

/// The actions of a menu and of those above it, the outermost first: only what is in a menu that is shown can be shown.
/// The same actions, the innermost first, hide them again.
QList<QDBusMessage> AtspiReader::actionsTo(const QList<Item> &items, qsizetype menu)
{
    QList<QDBusMessage> actions;
    for (qsizetype each = menu; each >= 0; each = items[each].parent) {
        if (!items[each].actions.isEmpty()) actions.prepend(atspi::doFirstAction(items[each].node));
    }
    return actions;
}

// Lists of menus have no titles and say nothing: an item counts as enabled when all titled ones above it are, since
// those in a disabled menu call themselves enabled. Hardly any item is on the screen, so that does not count.
QList<MenuEntry> AtspiReader::menu(const QList<AtspiNode> &programs, const QStringList &opened)
{
    QList<Item> items;
    append(items, childrenOf(menuBars(programs)), -1);
    read(items, 0);
    if (!opened.isEmpty()) open(items, opened);

    QList<MenuEntry> entries;
    const std::function<void(const Item &, QStringList, bool)> list = [&](const Item &item, QStringList path,
                                                                          bool enabled) {
        if (!item.title.isEmpty()) {
            enabled = enabled && item.enabled;
            const bool opensOnly = !item.children.isEmpty() || item.actions.value(0) == "ShowMenu"_L1;
            entries += {item.title, path, enabled, !opensOnly && !item.actions.isEmpty(),
                        item.node.service + u' ' + item.node.path};
            path += item.title;
        }
        for (const qsizetype child : item.children)
            list(items[child], path, enabled);
    };
    for (const Item &item : items) {
        if (item.parent < 0) list(item, {}, true);
    }
    return entries;
}

// A program that opens a question in answer replies only when that is closed, so silence of one that has just
// answered another question means that it acts. A stopped one answers neither.
bool AtspiReader::press(const MenuEntry &entry)
{
    const AtspiNode node{entry.reference.section(u' ', 0, 0), entry.reference.section(u' ', 1)};
    if (node.service.isEmpty() || !node.path.startsWith(u'/')) return false;
    if (m_bus.ask({atspi::states(node)})[0].type() != QDBusMessage::ReplyMessage) return false;
    const QDBusMessage answer = m_bus.ask({atspi::doFirstAction(node)})[0];
    if (atspi::isSilence(answer)) return true;
    return answer.type() == QDBusMessage::ReplyMessage && answer.arguments().value(0).toBool();
}
