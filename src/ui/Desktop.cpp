#include "Desktop.h"
#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace {
std::function<bool(Desktop::Program, const QString&)>& launcher() {
    static std::function<bool(Desktop::Program, const QString&)> l;
    return l;
}

bool startFirst(const QStringList& programs, const QStringList& args) {
    for (const QString& p : programs) {
        const QString exe = QStandardPaths::findExecutable(p);
        if (!exe.isEmpty() && QProcess::startDetached(exe, args)) return true;
    }
    return false;
}
} // namespace

namespace Desktop {
QString calculatorMissingText() {
    return QStringLiteral("请检查您的Windows系统是否安装了计算器，如果没有安装，请在系统“控制面板”的“添加/删除程序”中进行安装。");
}

bool startCalculator() {
    if (launcher()) return launcher()(Program::Calculator, {});
#ifdef Q_OS_WIN
    return startFirst({QStringLiteral("calc.exe")}, {});
#else
    // The calculators of the common desktops, then the small ones that come without a desktop.
    return startFirst({QStringLiteral("gnome-calculator"), QStringLiteral("kcalc"),
                       QStringLiteral("mate-calc"), QStringLiteral("xfce4-calculator"),
                       QStringLiteral("deepin-calculator"), QStringLiteral("galculator"),
                       QStringLiteral("qalculate-qt"), QStringLiteral("qalculate-gtk"),
                       QStringLiteral("qalculate"), QStringLiteral("speedcrunch"), QStringLiteral("xcalc")},
                      {});
#endif
}

bool startTextEditor(const QString& file) {
    if (launcher()) return launcher()(Program::TextEditor, file);
    const QStringList args = file.isEmpty() ? QStringList() : QStringList{file};
#ifdef Q_OS_WIN
    return startFirst({QStringLiteral("notepad.exe")}, args);
#else
    if (startFirst({QStringLiteral("gnome-text-editor"), QStringLiteral("gedit"), QStringLiteral("kate"),
                    QStringLiteral("kwrite"), QStringLiteral("mousepad"), QStringLiteral("pluma"),
                    QStringLiteral("xed"), QStringLiteral("leafpad")},
                   args))
        return true;
    return !file.isEmpty() && openFile(file);
#endif
}

bool openFile(const QString& file) {
    if (launcher()) return launcher()(Program::DefaultApp, file);
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file));
}

void setLauncher(std::function<bool(Program, const QString&)> l) {
    launcher() = std::move(l);
}
} // namespace Desktop
