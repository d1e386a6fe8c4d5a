#include "ui/models/CoverSource.h"

QString coverSource(const GameEntry &game)
{
    const std::size_t content = qHashMulti(0, game.title, game.consoleID);
    return game.id + u'.' + QString::number(content, 36);
}

QString gameIDOfCover(const QString &source)
{
    return source.section(u'.', 0, 0);
}
