#pragma once
// The program's end.
#include <QStringList>
#include <functional>

namespace ui {

// Ends the program at once, all screens closing. Tests install a hook to see it happen.
void EndProgram();
void SetEndProgramHook(std::function<void()> hook);
// Every window of the program shows the picture in `files` that suits its size best.
void SetWindowIcon(const QStringList& files);
// Deletes every window that is left, owned ones with their owners; call it before the
// application object goes, which cannot tear down live windows safely.
void DestroyAllWindows();

}  // namespace ui
