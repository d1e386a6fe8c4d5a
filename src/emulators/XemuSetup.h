#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/// The texts of the section [sys.files] of xemu.toml, by key. What cannot be read counts as not set.
QMap<QString, QString> xemuSystemFiles(const QString &toml);

/// The labels of the system files that xemu cannot run without and that are not set, or not at their place (a look at
/// the disk). In the order in which xemu shows them.
QStringList missingXemuFiles(const QMap<QString, QString> &systemFiles);
