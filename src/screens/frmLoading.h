#pragma once
// The loading screen: a borderless box with a status text and a progress bar, shown while the
// match start calibrates and while every round is built. It has no behaviour of its own.
#include <functional>

#include "match/Overlays.h"
#include "ui/Form.h"

class QLabel;
class QProgressBar;

class frmLoading : public ui::Form, public LoadingBox {
public:
    frmLoading();
    static frmLoading& Instance();

    QLabel* lblStatus = nullptr;

    void Open(QWidget* owner) override;
    void Close() override { Unload(); }
    // Progress 0 to 100; fractions are kept, the bar shows whole percent.
    void SetProgress(double value) override;
    double Progress() const { return progress_; }
    void SetStatus(const QString& text) override;
    QString Status() const;

    // Called on every progress or status change (tests watch the sequence through it).
    std::function<void(double)> onProgress;
    std::function<void(const QString&)> onStatus;

protected:
    void CreateControls(QWidget* window) override;

private:
    QProgressBar* ProgressBar = nullptr;
    double progress_ = 0;
};
