#pragma once

#include <QProcess>
#include <unistd.h>

/// As long as it lives, files obey their permissions even when the tests run as root, who may do everything.
class OrdinaryUser {
public:
    explicit OrdinaryUser(const QString &home)
    {
        if (::geteuid() != 0) return;
        QProcess::execute(QStringLiteral("chown"), {QStringLiteral("-R"), QStringLiteral("nobody"), home});
        m_changed = ::seteuid(65534) == 0;
    }
    ~OrdinaryUser()
    {
        if (m_changed && ::seteuid(0) != 0) qFatal("cannot be root again");
    }

private:
    bool m_changed = false;
};
