// Renders an SVG to a PNG at its own size: the workbench's splash and about pictures are kept
// as SVG and turned into the PNGs that the branding layout names when the workbench is built.

#include <QtGui/qguiapplication.h>
#include <QtGui/qimage.h>
#include <QtGui/qpainter.h>
#include <QtSvg/qsvgrenderer.h>

#include <cstdio>

int main(int argc, char **argv)
{
    // Fonts need a GUI application; no window is ever shown.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: svgtopng IN.svg OUT.png\n");
        return 2;
    }
    QSvgRenderer renderer(QString::fromLocal8Bit(argv[1]));
    if (!renderer.isValid()) {
        std::fprintf(stderr, "svgtopng: cannot read %s\n", argv[1]);
        return 1;
    }
    QImage image(renderer.defaultSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    if (!image.save(QString::fromLocal8Bit(argv[2]))) {
        std::fprintf(stderr, "svgtopng: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
