#include "base/Message.h"

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

QString english(const Message &message)
{
    return filled(message.text, message.arguments);
}
