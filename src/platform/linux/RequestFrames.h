#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <optional>

/// Between two calls of the program goes one JSON object a line.
inline QByteArray framed(const QJsonObject &words)
{
    return QJsonDocument(words).toJson(QJsonDocument::Compact) + '\n';
}

/// Cuts what arrives into objects. Broken for good after a line that is no object, or none within 16 MiB.
class FrameReader {
public:
    void add(const QByteArray &bytes)
    {
        m_buffer += bytes;
        if (m_buffer.size() > longest && !m_buffer.contains('\n')) m_broken = true;
    }
    bool isBroken() const { return m_broken; }
    std::optional<QJsonObject> next()
    {
        const qsizetype end = m_broken ? -1 : m_buffer.indexOf('\n');
        if (end < 0) return {};
        const QJsonDocument line = QJsonDocument::fromJson(m_buffer.first(end));
        m_buffer.remove(0, end + 1);
        if (line.isObject()) return line.object();
        m_broken = true;
        return {};
    }

private:
    static constexpr qsizetype longest = 16 * 1024 * 1024;
    QByteArray m_buffer;
    bool m_broken = false;
};
