#include "base/QuotedText.h"

using namespace Qt::StringLiterals;

QString inDoubleQuotes(const QString &text)
{
    QString quoted = u"\""_s;
    for (const QChar c : text) {
        if (c == u'"' || c == u'\\')
            quoted += QString(u'\\') + c;
        else if (c < u' ' || c == u'\x7f')
            quoted += u"\\u%1"_s.arg(uint(c.unicode()), 4, 16, QChar(u'0'));
        else
            quoted += c;
    }
    return quoted + u'"';
}
