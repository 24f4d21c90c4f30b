#pragma once
// A screen object. Its fields live as long as the object; its window and controls exist only
// while it is loaded, and every load builds them anew in their design-time state.
//
// Handlers of a screen may pump window events (long animations, waits), and the user may close
// the screen during such a pump, which takes its controls with the window. A handler entered
// through RunHandler (timers through OnTimer, and Form_Load) is therefore abandoned at the first
// pump after its screen has gone: the pump throws ScreenClosed, and the place where the handler
// was entered catches it. Nothing after that pump touches the closed screen's controls.
#include <QPointer>
#include <QString>
#include <QWidget>
#include <cstdint>
#include <functional>

namespace ui {

void PumpEvents();
void WaitForEvents(std::int32_t deadline);

class FormWindow;
class Timer;

struct ScreenClosed {};

class Form {
public:
    Form(int clientWidth, int clientHeight, Qt::WindowFlags flags = Qt::Window);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    // Loads the screen if needed (controls, then Form_Load) and shows it centred, not modal.
    // With an owner the window stays above it.
    void Show(QWidget* owner = nullptr);
    // Builds the window and controls and runs Form_Load, without showing.
    void Load(QWidget* owner = nullptr);
    // Closes the window: Form_Unload runs, and unless it cancels, the controls go.
    void Unload();
    bool Loaded() const { return !window_.isNull() && !closing_; }
    QWidget* window() const { return window_.data(); }

    void SetCaption(const QString& caption);
    QString Caption() const;

protected:
    virtual void CreateControls(QWidget* window) = 0;
    virtual void Form_Load() {}
    virtual void Form_Unload(bool& cancel) { (void)cancel; }

    // Runs `handler` as this screen's work (see above).
    void RunHandler(const std::function<void()>& handler);
    // Every tick of `timer` runs `handler` as this screen's work, while the screen is loaded.
    void OnTimer(Timer& timer, std::function<void()> handler);

private:
    friend class FormWindow;
    friend void PumpEvents();
    friend void WaitForEvents(std::int32_t deadline);
    bool HandleClose();
    static void ThrowIfAbandoned();

    int width_, height_;
    Qt::WindowFlags flags_;
    QPointer<QWidget> window_;
    QString caption_;
    bool closing_ = false;
    // Counts the loads, so that work begun for one showing never runs on into the next.
    std::uint32_t showing_ = 0;
};

// The event pumps for screens' work: handle the pending window events, or wait until `deadline`
// while handling them. Both throw ScreenClosed when the screen whose handler called them has
// closed meanwhile.
void PumpEvents();
void WaitForEvents(std::int32_t deadline);

}  // namespace ui
