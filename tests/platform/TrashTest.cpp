#include "platform/linux/LinuxServices.h"

#include "fakes/TemporaryHome.h"

#include <gtest/gtest.h>

TEST(Trash, keepsWhatIsMovedThere)
{
    const TemporaryHome home;
    const auto trash = makeTrash();
    const QString file = home.write(QStringLiteral("Pictures/Velko/a.png"), "picture");
    const auto moved = trash->move(file);
    ASSERT_TRUE(moved);
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_TRUE(moved.value().startsWith(QDir::homePath() + QStringLiteral("/.local/share/Trash/files/")));
    QFile kept(moved.value());
    ASSERT_TRUE(kept.open(QFile::ReadOnly));
    EXPECT_EQ(kept.readAll(), "picture");
    EXPECT_FALSE(trash->move(file)) << "gone already";
}
