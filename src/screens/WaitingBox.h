#pragma once
// The box that waits for a network match to start. The host's box tells the other players where
// to connect and with which code, and shows a line for each seat played at another computer as
// its player joins; a joiner's box says what he waits for and shows the host's options, which
// only the host can change. Closing the box cancels, the same as its "Cancel".
#include <QStringList>
#include <array>
#include <functional>
#include <vector>

#include "game/Settings.h"
#include "ui/Window.h"

class QLabel;
class QPushButton;

namespace screens {

class WaitingBox : public ui::Window {
public:
    explicit WaitingBox(QWidget* owner = nullptr);

    // Where the host can be reached: each of `addresses` with `port`.
    void setAddress(const QStringList& addresses, quint16 port);
    void setCode(const QString& code);
    // The line of seat `seat` (0 to 3), "Player N: " followed by `text`, e.g. "waiting..." or
    // "Bob, Rapper Grumbo". The lines stand in the order of the seats.
    void setSeat(int seat, const QString& text);
    void setMessage(const QString& text);
    void setSettings(const game::MatchSettings& settings);
    // Every line the box shows, top to bottom, but for its button; "name: value" where a line
    // has both.
    QStringList lines() const;
    void cancel();

    std::function<void()> onCancel;
    QPushButton* cancelButton = nullptr;

private:
    // A line of the box: a name and, in a column of its own, its value.
    struct Line {
        QString name, value;
        bool bold = false;
    };
    void arrange();

    QString message_;
    QStringList addresses_;
    QString code_;
    std::array<QString, 4> seats_{};
    std::vector<Line> settings_;
    std::vector<QLabel*> shown_;
};

// The options of a match in the setup screen's words: each one's name and value.
std::vector<std::pair<QString, QString>> settingsLines(const game::MatchSettings& settings);

}  // namespace screens
