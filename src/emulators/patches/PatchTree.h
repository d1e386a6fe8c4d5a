#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QPair>
#include <QString>
#include <memory>
#include <optional>

/// A piece of RPCS3's patch list, as far as its tables go.
struct PatchNode {
    enum class Kind { nothing, scalar, list, table } kind = Kind::nothing;
    QString text; ///< of a scalar
    QList<std::shared_ptr<const PatchNode>> values; ///< of a list or a table
    QStringList keys; ///< of a table, in the order of `values`

    /// Nothing when this is no table or has no such key.
    const PatchNode *at(const QString &key) const;
};

/// Reads the list block by block: a block is a key at the left margin with all that is below it. What one block names
/// with an anchor, later ones may use.
class PatchBlocks {
public:
    /// The block's table; nothing when it cannot be read.
    std::shared_ptr<const PatchNode> read(const QByteArray &block);

private:
    QHash<QString, std::shared_ptr<const PatchNode>> m_anchors;
    int m_nodes = 0; ///< made so far; too many are refused
};
