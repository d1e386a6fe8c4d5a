#include "play/supervision/MenuCommand.h"

#include "play/states/SaveStatePolicy.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

static MenuEntry leaf(const QStringList &path, const QString &title, bool enabled = true)
{
    return {title, path, enabled, true, title};
}

static MenuEntry menu(const QStringList &path, const QString &title, bool enabled = true)
{
    return {title, path, enabled, false, {}};
}

struct MenuRow {
    const char *name;
    const char *engine;
    QList<MenuEntry> entries;
    const char *save; ///< title of what is pressed; empty: nothing
    const char *load;
};
class MenuCommand : public testing::TestWithParam<MenuRow> { };
TEST_P(MenuCommand, isWhatActsAtOnce)
{
    const QString engine = QString::fromUtf8(GetParam().engine);
    const auto found = [&](StateCommand command) {
        const auto entry = findMenuCommand(GetParam().entries, stateTitles(command, engine, Host::linux));
        return entry ? entry->title : QString();
    };
    EXPECT_EQ(found(StateCommand::save), QString::fromUtf8(GetParam().save));
    EXPECT_EQ(found(StateCommand::load), QString::fromUtf8(GetParam().load));
}
static const QStringList file{u"File"_s};
static const QStringList emulation{u"Emulation"_s};
INSTANTIATE_TEST_SUITE_P(
    Menus, MenuCommand,
    testing::Values(
        MenuRow{"quickSaveIsASave",
                "other",
                {leaf(file, u"Quick Save"_s), leaf(file, u"Quick Load"_s)},
                "Quick Save",
                "Quick Load"},
        MenuRow{"whatIsOffIsPassedOver",
                "other",
                {leaf(file, u"Save State"_s, false), leaf(file, u"Quick Save"_s), leaf(file, u"Load State"_s, false)},
                "Quick Save",
                ""},
        MenuRow{"theBetterTitleComesFirst",
                "other",
                {leaf(file, u"Save to Oldest Slot"_s), leaf(file, u"Save State"_s)},
                "Save State",
                ""},
        MenuRow{"noQuestionsForAFile",
                "other",
                {leaf(file, u"Save State As…"_s), leaf(file, u"Save State to File"_s), leaf(file, u"Load State..."_s)},
                "",
                ""},
        MenuRow{"french",
                "other",
                {leaf({u"Fichier"_s}, u"Charger l’état depuis un fichier"_s),
                 leaf({u"Fichier"_s}, u"Sauvegarder l’état"_s), leaf({u"Fichier"_s}, u"Annuler Charger l'état"_s),
                 leaf({u"Fichier"_s}, u"Chargement rapide"_s)},
                "Sauvegarder l’état",
                "Chargement rapide"},
        MenuRow{"mgbaByItsSlots",
                "mgba",
                {leaf(file, u"Load state"_s), leaf(file, u"Save state"_s), menu(file, u"Quick load"_s),
                 leaf({u"File"_s, u"Quick load"_s}, u"Load recent"_s), leaf({u"File"_s, u"Quick load"_s}, u"State 1"_s),
                 leaf({u"File"_s, u"Quick load"_s}, u"Undo load state"_s), menu(file, u"Quick save"_s),
                 leaf({u"File"_s, u"Quick save"_s}, u"Save recent"_s), leaf({u"File"_s, u"Quick save"_s}, u"State 1"_s),
                 leaf({u"File"_s, u"Quick save"_s}, u"State 2"_s)},
                "State 1",
                "State 1"},
        MenuRow{"dolphinNotItsMenusNorItsFiles",
                "dolphin",
                {menu(emulation, u"Load State"_s), leaf({u"Emulation"_s, u"Load State"_s}, u"Load State from File"_s),
                 leaf({u"Emulation"_s, u"Load State"_s}, u"Load State from Selected Slot"_s),
                 leaf({u"Emulation"_s, u"Load State"_s}, u"Undo Load State"_s), menu(emulation, u"Save State"_s),
                 leaf({u"Emulation"_s, u"Save State"_s}, u"Save State to File"_s),
                 leaf({u"Emulation"_s, u"Save State"_s}, u"Save State to Selected Slot"_s),
                 leaf({u"Emulation"_s, u"Save State"_s}, u"Save State to Oldest Slot"_s)},
                "Save State to Selected Slot",
                "Load State from Selected Slot"},
        MenuRow{"slotsThatExistOnlyOnceTheMenuIsOpen",
                "duckstation",
                {menu({u"System"_s}, u"Save State"_s), leaf({u"System"_s, u"Save State"_s}, u"Save To File…"_s),
                 leaf({u"System"_s, u"Save State"_s}, u"Game Save 10 (Empty)"_s),
                 leaf({u"System"_s, u"Save State"_s}, u"Game Save 1 (Empty)"_s), menu({u"System"_s}, u"Load State"_s)},
                "Game Save 1 (Empty)",
                ""},
        MenuRow{"azaharSavesQuickly",
                "azahar",
                {menu(emulation, u"Save State"_s), leaf({u"Emulation"_s, u"Save State"_s}, u"Slot 1"_s),
                 leaf({u"Emulation"_s, u"Save State"_s}, u"Quick Save"_s), menu(emulation, u"Load State"_s, false),
                 leaf({u"Emulation"_s, u"Load State"_s}, u"Quick Load"_s, false)},
                "Quick Save",
                ""},
        MenuRow{"noMenus", "mgba", {}, "", ""}),
    [](const auto &row) { return row.param.name; });
