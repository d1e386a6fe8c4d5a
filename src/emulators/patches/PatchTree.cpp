#include "emulators/patches/PatchTree.h"

#include <QRegularExpression>
#include <sstream>
#include <stdexcept>
#include <yaml-cpp/eventhandler.h>
#include <yaml-cpp/exceptions.h>
#include <yaml-cpp/parser.h>

using namespace Qt::StringLiterals;

using NodePtr = std::shared_ptr<PatchNode>;
using Anchors = QHash<QString, std::shared_ptr<const PatchNode>>;

namespace {

constexpr int mostNodes = 2'000'000;

/// Builds the tree from what the parser reports. An alias is the node itself once more, so that many of them cost
/// nothing; one inside what it names counts as nothing.
class TreeBuilder final : public YAML::EventHandler {
public:
    TreeBuilder(Anchors &anchors, int &nodes) : m_anchors(anchors), m_nodes(nodes) { }

    NodePtr root;

    void OnDocumentStart(const YAML::Mark &) override { }
    void OnDocumentEnd() override { }
    void OnAnchor(const YAML::Mark &, const std::string &name) override { m_name = QString::fromStdString(name); }
    void OnNull(const YAML::Mark &, YAML::anchor_t anchor) override { leaf(anchor, PatchNode::Kind::nothing, {}); }
    void OnAlias(const YAML::Mark &, YAML::anchor_t anchor) override
    {
        add(m_anchors.value(m_names.value(anchor), std::make_shared<const PatchNode>()));
    }
    void OnScalar(const YAML::Mark &, const std::string &, YAML::anchor_t anchor, const std::string &value) override
    {
        leaf(anchor, PatchNode::Kind::scalar, QString::fromStdString(value));
    }
    void OnSequenceStart(const YAML::Mark &, const std::string &, YAML::anchor_t anchor,
                         YAML::EmitterStyle::value) override
    {
        open(anchor, PatchNode::Kind::list);
    }
    void OnSequenceEnd() override { close(); }
    void OnMapStart(const YAML::Mark &, const std::string &, YAML::anchor_t anchor, YAML::EmitterStyle::value) override
    {
        open(anchor, PatchNode::Kind::table);
    }
    void OnMapEnd() override { close(); }

private:
    struct Open {
        NodePtr node;
        QString anchor;
        bool hasKey = false; ///< of a table: the next node is its value
    };

    NodePtr make(YAML::anchor_t anchor, PatchNode::Kind kind, QString &name)
    {
        if (++m_nodes > mostNodes) throw std::length_error("too many nodes");
        name = std::exchange(m_name, QString());
        if (!name.isEmpty()) m_names.insert(anchor, name);
        auto node = std::make_shared<PatchNode>();
        node->kind = kind;
        return node;
    }

    void leaf(YAML::anchor_t anchor, PatchNode::Kind kind, const QString &text)
    {
        QString name;
        const NodePtr node = make(anchor, kind, name);
        node->text = text;
        finish(node, name);
    }

    void open(YAML::anchor_t anchor, PatchNode::Kind kind)
    {
        QString name;
        const NodePtr node = make(anchor, kind, name);
        m_open += Open{node, name};
    }

    void close()
    {
        const Open ended = m_open.takeLast();
        if (m_open.isEmpty())
            root = ended.node;
        else
            finish(ended.node, ended.anchor);
    }

    void finish(const NodePtr &node, const QString &anchor)
    {
        // The stand-ins for what earlier blocks have named must not replace it.
        const bool standIn = m_open.size() == 2 && m_open[0].node->keys.size() == 1;
        if (!anchor.isEmpty() && !standIn) m_anchors.insert(anchor, node);
        add(node);
    }

    void add(std::shared_ptr<const PatchNode> node)
    {
        if (m_open.isEmpty()) return;
        Open &parent = m_open.last();
        if (parent.node->kind == PatchNode::Kind::table && !parent.hasKey) {
            parent.node->keys += node->text;
            parent.hasKey = true;
            return;
        }
        parent.node->values += std::move(node);
        parent.hasKey = false;
    }

    Anchors &m_anchors;
    int &m_nodes;
    QHash<YAML::anchor_t, QString> m_names;
    QString m_name; ///< of the node that comes next
    QList<Open> m_open;
};

/// What earlier blocks have named, as the parser wants to see it: "Earlier: [&a 0, &b 0]" in front of the block.
QByteArray standIns(const QByteArray &block)
{
    static const QRegularExpression alias(u"\\*([\\w.\\-]+)"_s);
    QStringList names;
    auto matches = alias.globalMatch(QString::fromUtf8(block));
    while (matches.hasNext())
        names += u'&' + matches.next().captured(1) + u" 0"_s;
    names.removeDuplicates();
    return "Earlier: [" + names.join(u", "_s).toUtf8() + "]\n";
}
}

const PatchNode *PatchNode::at(const QString &key) const
{
    const qsizetype index = keys.indexOf(key);
    return kind == Kind::table && index >= 0 && index < values.size() ? values[index].get() : nullptr;
}

std::shared_ptr<const PatchNode> PatchBlocks::read(const QByteArray &block)
{
    try {
        TreeBuilder builder(m_anchors, m_nodes);
        std::istringstream text((standIns(block) + block).toStdString());
        YAML::Parser parser(text);
        if (!parser.HandleNextDocument(builder)) return {};
        return builder.root;
    } catch (const std::exception &) {
        return {}; // the parser speaks by exceptions
    }
}
