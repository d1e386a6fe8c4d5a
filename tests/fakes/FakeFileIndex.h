#pragma once

#include "platform/FileIndex.h"

#include <QFileInfo>
#include <QRegularExpression>

/// Knows only these files; nothing is walked.
struct FakeFileIndex final : FileIndex {
    QStringList files;

    QStringList named(const QString &name, const QStringList &) const override
    {
        return files.filter(QRegularExpression(u'/' + QRegularExpression::escape(name) + u'$'));
    }
    QStringList beginningWith(const QString &prefix, const QString &suffix) const override
    {
        QStringList found;
        for (const QString &file : files) {
            const QString name = QFileInfo(file).fileName();
            if (name.startsWith(prefix, Qt::CaseInsensitive) && name.endsWith(suffix, Qt::CaseInsensitive))
                found += file;
        }
        return found;
    }
};
