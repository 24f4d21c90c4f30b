#include <QApplication>
#include <iostream>

#include "app/CommandLine.h"
#include "app/ScreenFlow.h"
#include "core/Random.h"
#include "media/Audio.h"
#include "ui/Display.h"
#include "ui/Program.h"

int main(int argc, char** argv) {
    grumbo::Options options;
    if (const auto status = grumbo::ParseCommandLine(argc, argv, options, std::cout, std::cerr))
        return *status;
    const ui::ScreenInfo screen = ui::ProbeScreen(argc, argv);
    ui::SetScale(options.scale.value_or(ui::AutomaticScale(screen)), screen);

    QApplication app(argc, argv);
    app.setQuitOnLastWindowClosed(true);
    grumbo::PinSeed(options.seed);
    ui::SetWindowIcon(grumbo::IconFiles());
    media::Audio::OpenDevice();
    grumbo::StartProgram();
    const int rc = app.exec();
    ui::DestroyAllWindows();
    media::Audio::CloseDevice();
    return rc;
}
