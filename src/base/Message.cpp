#include "base/Message.h"

using namespace Qt::StringLiterals;

QString filled(const QString &sentence, const QStringList &arguments)
{
    QString result;
    result.reserve(sentence.size() + 32);
    qsizetype next = 0;
    for (qsizetype i = 0; i < sentence.size(); ++i) {
        const QStringView rest = QStringView(sentence).mid(i);
        if (rest.startsWith(u"%%")) {
            result += u'%';
            ++i;
            continue;
        }
        const qsizetype length = rest.startsWith(u"%ld") ? 3 : rest.startsWith(u"%@") || rest.startsWith(u"%d") ? 2 : 0;
        if (length == 0 || next >= arguments.size()) {
            result += sentence[i];
            continue;
        }
        result += arguments[next++];
        i += length - 1;
    }
    return result;
}

QString told(const Message &message, const std::function<QString(const QString &)> &translated)
{
    QStringList arguments = message.arguments;
    for (const auto &[place, inner] : message.inner) {
        while (arguments.size() <= place)
            arguments += QString();
        arguments[place] = told(inner, translated);
    }
    return filled(translated(message.text), arguments);
}

QString english(const Message &message)
{
    return told(message, [](const QString &text) { return text; });
}

Message listed(const QStringList &texts)
{
    Message list;
    for (int place = 0; place < texts.size(); ++place) {
        list.text += place == 0 ? u"%@"_s : u", %@"_s;
        list.inner[place] = {texts[place], {}};
    }
    return list;
}
