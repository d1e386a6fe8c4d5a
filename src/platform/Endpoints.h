#pragma once

#include <QString>
#include <QUrl>

/// The servers of others that Velko asks, each without a closing slash, and our own pages on the web, which have none
/// unless a file names them.
struct Endpoints {
    QUrl rpcs3{QStringLiteral("https://rpcs3.net")}; ///< its compatibility service
    QUrl githubApi{QStringLiteral("https://api.github.com")};
    QUrl githubArchive{QStringLiteral("https://codeload.github.com")};
    QUrl donation; ///< where Velko can be supported; empty: nowhere
    QUrl invitation; ///< to the project's Discord; empty: there is none
};

/// The servers named in an INI file in the place of the usual ones, by the names of the fields: "rpcs3=http://…". What
/// the file does not name, or names wrongly, stays; an empty name of the file changes nothing.
Endpoints endpointsFrom(const QString &iniFile);

/// `path` and `query` below an endpoint.
QUrl addressAt(const QUrl &endpoint, const QString &path, const QString &query = {});
