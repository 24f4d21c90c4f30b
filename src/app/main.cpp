#include <QApplication>
#include <QDateTime>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <random>
#include <vector>

#include "app/CommandLine.h"
#include "app/Records.h"
#include "app/Replays.h"
#include "app/ScreenFlow.h"
#include "net/DataDigest.h"
#include "ui/Display.h"
#include "ui/Keyboard.h"
#include "ui/Window.h"

namespace {
// What the toolkit says while it connects to the display, held back: when it cannot connect, its
// page of advice and its abort become one line and a plain failure.
struct HeldMessage {
    QtMsgType type;
    QByteArray category;
    QString text;
};
std::vector<HeldMessage> held;
QtMessageHandler toolkitHandler = nullptr;

void holdMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type != QtFatalMsg) {
        held.push_back({type, context.category, text});
        return;
    }
    // The first complaint names the cause: "could not connect to display :1".
    const QString cause = held.empty() ? text : held.front().text;
    std::fprintf(stderr, "grumbo2: cannot open a window: %s\n", qPrintable(cause.trimmed()));
    std::_Exit(1);
}

void releaseMessages() {
    qInstallMessageHandler(toolkitHandler);
    for (const HeldMessage& m : held) {
        const QMessageLogContext context(nullptr, 0, nullptr, m.category.constData());
        qt_message_output(m.type, context, m.text);
    }
    held.clear();
}

QStringList iconFiles(const core::DataFolder& data) {
    QStringList files;
    for (int size : {16, 22, 24, 32, 48, 64, 128, 256})
        files << data.path(QStringLiteral("icons/grumbo2-%1.png").arg(size));
    return files;
}
}  // namespace

int main(int argc, char** argv) {
    // A terminal or pipe that stops reading what the game says must not end the game: a write to
    // it then fails quietly.
    std::signal(SIGPIPE, SIG_IGN);
    app::Options options;
    if (const auto status = app::parseCommandLine(argc, argv, options, std::cout, std::cerr))
        return *status;
    if (options.check) {
        // No window: the record is played on the rules alone.
        QCoreApplication application(argc, argv);
        return app::checkReplay(
            *options.replay, core::DataFolder::forProgram(QCoreApplication::applicationDirPath()),
            std::cout, std::cerr);
    }
    toolkitHandler = qInstallMessageHandler(holdMessage);
    const ui::ScreenInfo screen = ui::probeScreen(argc, argv);
    ui::setScale(options.scale.value_or(ui::automaticScale(screen)), screen);

    QApplication application(argc, argv);
    releaseMessages();
    // The screen flow decides when the program ends, not the last window that closes.
    application.setQuitOnLastWindowClosed(false);
    const core::DataFolder data =
        core::DataFolder::forProgram(QCoreApplication::applicationDirPath());
    ui::setWindowIcon(iconFiles(data));
    ui::Keyboard keyboard;
    keyboard.install();
    std::random_device entropy;
    const auto seed = [&]() -> std::uint64_t {
        if (options.seed) return *options.seed;
        return (std::uint64_t{entropy()} << 32) ^
               static_cast<std::uint64_t>(QDateTime::currentMSecsSinceEpoch());
    };
    int status = 0;
    {
        media::SdlSound sound;
        std::array<screens::Seat, 4> seats;
        for (std::size_t i = 0; i < seats.size(); ++i)
            if (options.computers[i]) seats[i] = game::kUsualSkill;
        const app::RecordStore records(app::RecordStore::usualFolder());
        // Not quit(), which first asks every window to close and gives up when one refuses.
        app::Services services{sound, keyboard, data, seed, [] { QCoreApplication::exit(0); }};
        if (options.record)
            services.keepRecord = [&records](const game::Record& r) {
                records.keep(r, QDateTime::currentDateTime());
            };
        services.remote = options.remotes;
        if (options.port) services.port = *options.port;
        services.code = options.code;
        services.version = QStringLiteral(GRUMBO_VERSION);
        services.dataDigest = net::digestData(data);
        app::ScreenFlow flow(services, seats);
        if (options.join) {
            // A joiner's --computer lets his computer play whichever seat the host gives him.
            const bool computer = std::any_of(options.computers.begin(), options.computers.end(),
                                              [](bool c) { return c; });
            QString address = *options.join;
            // --port stands for the port an address without one leaves out.
            if (options.port && !address.contains(QLatin1Char(':')))
                address += QLatin1Char(':') + QString::number(*options.port);
            flow.join(address, *options.code,
                      computer ? screens::Seat(game::kUsualSkill) : std::nullopt);
        } else if (!options.replay) {
            flow.start();
        } else {
            const app::ReplayFile replay = app::openReplay(*options.replay, data);
            if (!replay.record) {
                std::fprintf(stderr, "grumbo2: %s\n", qPrintable(replay.error));
                return 2;
            }
            flow.startReplay(*replay.setup, game::Replay(replay.record->commands));
        }
        status = QApplication::exec();
        ui::destroyAllWindows();
    }
    return status;
}
