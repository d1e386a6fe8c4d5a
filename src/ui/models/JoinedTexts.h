#pragma once

#include <QStringList>

/// The texts that are not empty, with commas between them: how a screen reader speaks what stands in several places.
inline QString joined(QStringList texts)
{
    texts.removeAll(QString());
    return texts.join(QStringLiteral(", "));
}
