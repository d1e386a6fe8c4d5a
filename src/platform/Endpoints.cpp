#include "platform/Endpoints.h"

#include <QSettings>

using namespace Qt::StringLiterals;

Endpoints endpointsFrom(const QString &iniFile)
{
    Endpoints endpoints;
    if (iniFile.isEmpty()) return endpoints;
    const QSettings ini(iniFile, QSettings::IniFormat);
    const auto take = [&ini](const QString &key, QUrl &endpoint) {
        const QUrl address(ini.value(key).toString());
        const bool web = address.scheme() == "https"_L1 || address.scheme() == "http"_L1;
        if (web && !address.host().isEmpty()) endpoint = address.adjusted(QUrl::StripTrailingSlash);
    };
    take(u"rpcs3"_s, endpoints.rpcs3);
    take(u"githubApi"_s, endpoints.githubApi);
    take(u"githubArchive"_s, endpoints.githubArchive);
    take(u"donation"_s, endpoints.donation);
    take(u"invitation"_s, endpoints.invitation);
    return endpoints;
}

QUrl addressAt(const QUrl &endpoint, const QString &path, const QString &query)
{
    QUrl address = endpoint;
    address.setPath(endpoint.path() + path);
    if (!query.isEmpty()) address.setQuery(query);
    return address;
}
