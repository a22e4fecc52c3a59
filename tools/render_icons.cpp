// Renders the program's SVG icon into the PNG sizes a desktop menu asks for:
// render_icons ICON.svg OUTDIR SIZE... writes OUTDIR/SIZE.png for each size.
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>
#include <cstdlib>

int main(int argc, char* argv[]) {
    if (argc < 4) {
        std::fprintf(stderr, "usage: render_icons ICON.svg OUTDIR SIZE...\n");
        return 2;
    }
    QSvgRenderer svg(QString::fromLocal8Bit(argv[1]));
    if (!svg.isValid()) {
        std::fprintf(stderr, "render_icons: cannot read %s\n", argv[1]);
        return 1;
    }
    const QDir out(QString::fromLocal8Bit(argv[2]));
    if (!out.mkpath(QStringLiteral("."))) return 1;
    for (int i = 3; i < argc; ++i) {
        const int size = std::atoi(argv[i]);
        if (size < 8 || size > 1024) {
            std::fprintf(stderr, "render_icons: bad size %s\n", argv[i]);
            return 2;
        }
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter p(&image);
        p.setRenderHint(QPainter::Antialiasing);
        svg.render(&p);
        p.end();
        if (!image.save(out.filePath(QString::number(size) + QStringLiteral(".png")), "PNG")) return 1;
    }
    return 0;
}
