#include "app/CommandLine.h"

using namespace Qt::StringLiterals;

namespace {
struct Form {
    const char16_t *word;
    Command::Kind kind;
    int fewest;
    int most; ///< operands; -1: any number
    bool json;
};
} // namespace

static constexpr Form forms[] = {
    {u"add", Command::Kind::add, 1, -1, false},
    {u"scan", Command::Kind::scan, 0, -1, false},
    {u"list", Command::Kind::list, 0, 0, true},
    {u"play", Command::Kind::play, 1, 1, false},
    {u"emulators", Command::Kind::emulators, 0, 0, true},
    {u"doctor", Command::Kind::doctor, 0, 0, false},
    {u"bios", Command::Kind::bios, 1, -1, false},
    {u"--big-picture", Command::Kind::openBigPicture, 0, 0, false},
    {u"--help", Command::Kind::help, 0, 0, false},
    {u"-h", Command::Kind::help, 0, 0, false},
    {u"--version", Command::Kind::version, 0, 0, false},
};

static QString tooFew(Command::Kind kind)
{
    if (kind == Command::Kind::play) return u"Which game? Give its title or identifier: velko play GAME"_s;
    if (kind == Command::Kind::bios) return u"Which files? Give at least one: velko bios FILE…"_s;
    return u"Which files? Give at least one: velko add PATH…"_s;
}

static Result<Command> parse(const Form &form, const QStringList &rest)
{
    Command command{.kind = form.kind};
    bool optionsOver = false;
    for (const QString &word : rest) {
        if (!optionsOver && word == "--"_L1)
            optionsOver = true;
        else if (!optionsOver && word == "--json"_L1 && form.json)
            command.json = true;
        else if (!optionsOver && word.startsWith(u'-') && word.size() > 1)
            return Message{u"“velko %@” has no option “%@”."_s, {QString::fromUtf16(form.word), word}};
        else if (word.isEmpty()) // as a path it would be the folder that the user is in
            return Message{u"“velko %@” can't do anything with an empty name."_s, {QString::fromUtf16(form.word)}};
        else
            command.operands += word;
    }
    if (command.operands.size() < form.fewest) return Message{tooFew(form.kind), {}};
    if (form.most >= 0 && command.operands.size() > form.most)
        return Message{u"“velko %@” doesn't take “%@”. A name with blanks must stand in quotes."_s,
                       {QString::fromUtf16(form.word), command.operands.value(form.most)}};
    return command;
}

/// Takes "--virtual-pad PIPE" out of the arguments, wherever it stands before "--". Empty: it is not there.
static Result<QString> takeVirtualPad(QStringList &arguments)
{
    const auto place = arguments.indexOf(u"--virtual-pad"_s);
    const auto end = arguments.indexOf(u"--"_s);
    if (place < 0 || (end >= 0 && end < place)) return QString();
    const QString pipe = arguments.value(place + 1);
    if (pipe.isEmpty()) return Message{u"Which pipe? Give its path: --virtual-pad PIPE"_s, {}};
    arguments.remove(place, 2);
    return pipe;
}

static bool playsWithController(Command::Kind kind)
{
    return kind == Command::Kind::openWindow || kind == Command::Kind::openBigPicture || kind == Command::Kind::play;
}

static Result<Command> parseWords(const QStringList &arguments)
{
    if (arguments.isEmpty()) return Command{};
    for (const Form &form : forms) {
        if (arguments.first() == QStringView(form.word)) return parse(form, arguments.mid(1));
    }
    return Message{u"Velko doesn't know “%@”. “velko --help” shows what it can do."_s, {arguments.first()}};
}

Result<Command> parseCommandLine(const QStringList &given)
{
    QStringList arguments = given;
    const auto pipe = takeVirtualPad(arguments);
    if (!pipe) return pipe.failure();
    auto command = parseWords(arguments);
    if (!command || pipe.value().isEmpty()) return command;
    if (!playsWithController(command.value().kind))
        return Message{u"“velko %@” has no option “%@”."_s, {arguments.first(), u"--virtual-pad"_s}};
    command.value().virtualPad = pipe.value();
    return command;
}

QString usage()
{
    return uR"(velko                     open the window
velko --big-picture       open Big Picture
velko add PATH…           add game files or folders to the library
velko scan [DIR…]         look for games in these folders from now on; without any, in all folders again
velko list [--json]       the games
velko play GAME           start a game, by its title or identifier; returns when the game has ended
velko emulators [--json]  the emulators that are installed
velko bios FILE…          put system files where their consoles' emulators look for them
velko doctor              what is found and what is missing, with remedies

--virtual-pad PIPE        with the window or with play: a controller without hardware. It does what the lines say that
                          are written to this named pipe: “press A”, “hold View”, “release View”, “unplug”, “plug”

Exit status: 0 it worked, 1 it failed, 2 wrong usage.
)"_s;
}
