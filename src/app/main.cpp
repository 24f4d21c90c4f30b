#include <QApplication>

#include "app/ScreenFlow.h"
#include "media/Audio.h"
#include "ui/Program.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    app.setQuitOnLastWindowClosed(true);
    media::Audio::OpenDevice();
    grumbo::StartProgram();
    const int rc = app.exec();
    ui::DestroyAllWindows();
    media::Audio::CloseDevice();
    return rc;
}
