#pragma once
// A screen object. Its fields live as long as the object; its window and controls exist only
// while it is loaded, and every load builds them anew in their design-time state.
#include <QPointer>
#include <QString>
#include <QWidget>

namespace ui {

class FormWindow;

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

private:
    friend class FormWindow;
    bool HandleClose();

    int width_, height_;
    Qt::WindowFlags flags_;
    QPointer<QWidget> window_;
    QString caption_;
    bool closing_ = false;
};

}  // namespace ui
