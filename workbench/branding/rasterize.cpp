// Renders an SVG at its own size to the picture file that the branding layout names, in the
// format of its suffix: the workbench's splash and about pictures are kept as SVG and turned
// into pictures when the workbench is built. The splash is a JPEG because it is decoded on the
// way to the first window, where a PNG of its size takes four times as long.

#include <QtGui/qguiapplication.h>
#include <QtGui/qimage.h>
#include <QtGui/qpainter.h>
#include <QtGui/qrgb.h>
#include <QtSvg/qsvgrenderer.h>

#include <cstdio>

int main(int argc, char **argv)
{
    // Fonts need a GUI application; no window is ever shown.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: rasterize IN.svg OUT.{png,jpg}\n");
        return 2;
    }
    QSvgRenderer renderer(QString::fromLocal8Bit(argv[1]));
    if (!renderer.isValid()) {
        std::fprintf(stderr, "rasterize: cannot read %s\n", argv[1]);
        return 1;
    }
    QImage image(renderer.defaultSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    // A picture without a transparent pixel is kept opaque: it decodes and draws as a plain
    // copy, and the splash is drawn again for every start-up message.
    bool opaque = true;
    for (int y = 0; opaque && y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; opaque && x < image.width(); ++x)
            opaque = qAlpha(line[x]) == 255;
    }
    if (opaque)
        image.reinterpretAsFormat(QImage::Format_RGB32); // same bytes when every alpha is 255
    // Smooth gradients and text stay clean at this JPEG quality; PNG ignores it beyond
    // its compression level.
    if (!image.save(QString::fromLocal8Bit(argv[2]), nullptr, 92)) {
        std::fprintf(stderr, "rasterize: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
