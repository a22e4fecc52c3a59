#pragma once
#include <QString>
#include <functional>

class QWidget;

// Programs of the desktop: the calculator, a text editor, and the default program for a file.
namespace Desktop {
// Starts a calculator; false when none could be started.
bool startCalculator();
// What the calculator keys say when none could be started.
QString calculatorMissingText();
// Starts a text editor, on `file` when given; false when none could be started.
bool startTextEditor(const QString& file = {});
// Opens a file with the desktop's default program for it; false when that failed.
bool openFile(const QString& file);

enum class Program { Calculator, TextEditor, DefaultApp };
// Test seam: while set, every start goes to `launcher` with the file (empty for none), and
// its answer tells whether a program started. An empty function gives the desktop back.
void setLauncher(std::function<bool(Program, const QString&)> launcher);
} // namespace Desktop
