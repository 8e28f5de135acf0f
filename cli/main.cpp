// korvo-cli: the headless companion of the designer.
#include "Cli.h"
#include "RuntimeError.h"

#include <cstdio>
#include <QGuiApplication>
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif
#include <functional>
#include <map>

namespace {

const char* const kUsage =
    "usage: korvo-cli [--program-dir DIR] [--model new|old] [--language N] COMMAND ...\n"
    "\n"
    "  show FILE [--label KN] [--json]   the label as the designer unfolds it\n"
    "  export FILE [--label KN] -o OUT   writes the label as a label file\n"
    "  check FILE...                     what the readers would take wrongly\n"
    "  preview FILE [--label KN] -o OUT  renders the preview as PNG, SVG or PDF\n"
    "  frames FILE [--label KN] [--equipo N] [--texts-only]\n"
    "                                    the bytes a transfer puts on the line, a frame a line\n"
    "  send FILE [--label KN | --all-labels] (--port PORT | --scales LIST) [--baud B]\n"
    "       [--parity N|E|O] [--data 7|8] [--stop 1|2] [--equipo N] [--texts-only] [--trace OUT]\n"
    "                                    sends the label, or every label of the set in turn,\n"
    "                                    to a scale or to every scale of LIST at once; PORT is\n"
    "                                    a device, COM1..COM4 or tcp://HOST:PORT; LIST is CSV\n"
    "                                    with the header "
    "name,port,equipo[,baud,parity,data,stop];\n"
    "                                    OUT gets every frame and reply with its time\n"
    "\n"
    "FILE is a set file or a label file, told apart by the next-to-last character\n"
    "of its name. KN is a kind and a number: V3, T5.\n";

} // namespace

int main(int argc, char** argv)
{
    // The companion shows no window; the preview's drawing still needs the
    // fonts of a GUI application, which the offscreen platform gives anywhere.
    qputenv("QT_QPA_PLATFORM", "offscreen");
#ifdef _WIN32
    // What the companion prints is the same bytes on every system: no
    // carriage return put before each line feed.
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
#endif
    QGuiApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    if (args.isEmpty() || args.contains(QStringLiteral("--help")) ||
        args.contains(QStringLiteral("-h"))) {
        std::fputs(kUsage, args.isEmpty() ? stderr : stdout);
        return args.isEmpty() ? 2 : 0;
    }
    const std::map<QString, std::function<int(CliContext&, QStringList)>> commands = {
        {QStringLiteral("show"), cmdShow},     {QStringLiteral("export"), cmdExport},
        {QStringLiteral("check"), cmdCheck},   {QStringLiteral("preview"), cmdPreview},
        {QStringLiteral("frames"), cmdFrames}, {QStringLiteral("send"), cmdSend},
    };
    CliContext ctx;
    try {
        ctx.configure(args);
        if (args.isEmpty())
            throw UsageError(kUsage);
        const auto command = commands.find(args.takeFirst());
        if (command == commands.end())
            throw UsageError(kUsage);
        return command->second(ctx, args);
    } catch (const UsageError& e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 2;
    } catch (const RuntimeError& e) {
        std::fprintf(stderr, "%s\n", qPrintable(e.text()));
        return 1;
    }
}
