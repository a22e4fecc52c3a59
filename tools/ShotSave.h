#pragma once
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QWidget>
#include <cstdio>

// What the picture tools share: their --home and --out options, and one way to save a window.

// A window shown, laid out and grabbed to OUT/NAME.png; the file and the window's outer size
// are printed, so the output alone tells what fits the screen.
inline void SaveShot(QWidget* w, const QString& out, const QString& name) {
    if (!w->isVisible()) w->show();
    QApplication::processEvents();
    const QString path = QDir(out).filePath(name + QStringLiteral(".png"));
    w->grab().save(path);
    std::printf("%s %dx%d\n", qPrintable(path), w->frameGeometry().width(), w->frameGeometry().height());
}

// --home DIR (the venue) and --out DIR (the pictures, made if missing).
struct ShotOptions {
    QString home, out;
};
inline ShotOptions ParseShotOptions(const QApplication& app) {
    QCommandLineParser cli;
    QCommandLineOption home(QStringLiteral("home"), QStringLiteral("venue"), QStringLiteral("DIR"));
    QCommandLineOption out(QStringLiteral("out"), QStringLiteral("pictures"), QStringLiteral("DIR"));
    cli.addOptions({home, out});
    cli.process(app);
    QDir().mkpath(cli.value(out));
    return {cli.value(home), cli.value(out)};
}
