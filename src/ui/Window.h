#pragma once
// A screen's window: a fixed inner size, opened centred on the desktop. When the players close it
// with its close box, or the window system destroys it outright, `onClose` says what happens
// next; a window its program hides or deletes asks nothing.
#include <QWidget>
#include <functional>

namespace ui {

class Window : public QWidget {
public:
    Window(int width, int height, Qt::WindowFlags flags, QWidget* owner = nullptr);
    // Shows the window centred on the primary screen.
    void showCentred();
    std::function<void()> onClose;
    // A box over its owner has no close box; should the window system close it all the same, the
    // owner closes in its place, as though the players had closed that.
    bool closesOwner = false;

protected:
    void closeEvent(QCloseEvent* event) override;
};

// Every window of the program shows the picture in `files` that suits its size best. Files that
// are no pictures of an icon's size are left out.
void setWindowIcon(const QStringList& files);
// `title` as a window shows it, letter for letter, whatever names it holds.
QString plainTitle(const QString& title);
// Deletes every window that is left, owned ones with their owners; call it before the
// application object goes, which cannot tear down live windows safely.
void destroyAllWindows();

}  // namespace ui
