// Shows one of the framework's dialogs filled with sample content, for looking at it:
//   dialogs_gallery options|quickstart|assistant|examples|appbox|install|terms [help collection]
#include <velmoraframework/velmoraframework.h>

#include <QtCore/qdir.h>
#include <QtCore/qsettings.h>
#include <QtCore/qtemporarydir.h>
#include <QtGui/qpainter.h>
#include <QtGui/qpainterpath.h>
#include <QtWidgets/qapplication.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qboxlayout.h>

#include <cstdio>

using namespace Velmora::Framework;

namespace {

void writeText(const QString &path, const QByteArray &text)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text);
}

// A picture in the spirit of each kind of example: a curve, bars or a block diagram.
void writePicture(const QString &path, int kind, const QColor &colour)
{
    QImage image(320, 240, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 4));
    if (kind == 0) {
        QPainterPath curve(QPointF(20, 200));
        curve.cubicTo(90, 20, 200, 260, 300, 60);
        painter.drawPath(curve);
    } else if (kind == 1) {
        for (int i = 0; i < 6; ++i)
            painter.fillRect(30 + i * 45, 210 - (i * 37 % 150) - 30, 30, (i * 37 % 150) + 30, colour);
    } else {
        painter.drawRect(30, 90, 70, 50);
        painter.drawRect(220, 90, 70, 50);
        painter.drawLine(100, 115, 220, 115);
    }
    painter.end();
    image.save(path);
}

void writeExamples(const QString &root)
{
    struct Sample { const char *folder, *name, *category, *description; int kind; QColor colour; };
    const Sample samples[] = {
        {"tidekit/damped", "Damped Oscillator", "Tidekit Script",
         "Integrates a damped spring and plots the displacement over time.", 0, QColor(0x2f, 0x6f, 0xb5)},
        {"tidekit/fourier", "Fourier Series", "Tidekit Script",
         "Builds a square wave from its first harmonics.", 0, QColor(0xc0, 0x50, 0x30)},
        {"tidekit/histogram", "Histogram", "Tidekit Script",
         "Counts samples into bins and shows the distribution.", 1, QColor(0x3a, 0x9a, 0x5a)},
        {"tidekit/matrix", "Matrix Variants", "Tidekit Variant",
         "Shows how matrices are kept as variants and edited.", 1, QColor(0x80, 0x50, 0xa0)},
        {"flowdeck/controller", "PID Controller", "Flowdeck Diagram",
         "A closed loop with a plant and a PID controller.", 2, QColor(0x2f, 0x6f, 0xb5)},
    };
    for (const Sample &sample : samples) {
        const QString folder = QDir(root).filePath(QLatin1String(sample.folder));
        writeText(folder + QStringLiteral("/example.qprj"), "<project/>");
        writePicture(folder + QStringLiteral("/picture.png"), sample.kind, sample.colour);
        writeText(folder + QStringLiteral("/meta.ini"),
                  QByteArray("[Example]\nName=") + sample.name + "\nCategory=" + sample.category
                      + "\nDescription=" + sample.description
                      + "\nPicture=picture.png\nOpen=example.qprj\n");
    }
}

QString writeApp(const QString &folder, const QByteArray &name, const QByteArray &description)
{
    writeText(folder + QStringLiteral("/run.sh"), "#!/bin/sh\n");
    QFile::setPermissions(folder + QStringLiteral("/run.sh"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    writeText(folder + QStringLiteral("/app.ini"),
              "[App]\nName=" + name + "\nProgram=run.sh\nDescription=" + description + "\n");
    return folder;
}

QWidget *samplePage(const QString &title, const QString &text)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    auto *heading = new QLabel(QStringLiteral("<h2>%1</h2>").arg(title));
    auto *body = new QLabel(text);
    body->setWordWrap(true);
    layout->addWidget(heading);
    layout->addWidget(body);
    layout->addStretch(1);
    return page;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    const QString which = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    QTemporaryDir scratch;
    QSettings settings(scratch.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat);

    std::unique_ptr<QWidget> window;
    if (which == QLatin1String("options")) {
        auto *dialog = new OptionsDialog;
        dialog->setSettings(&settings);
        dialog->registerOptionPage(OptionPageGeneral::topItem(), new OptionPageGeneral);
        window.reset(dialog);
    } else if (which == QLatin1String("quickstart")) {
        auto *quick = new QuickStartWindow;
        quick->setSettings(&settings);
        quick->addPage(samplePage(QStringLiteral("Welcome"),
                                  QStringLiteral("Create a project or open an example to begin.")),
                       QStringLiteral("Getting Started"));
        quick->addPage(samplePage(QStringLiteral("Recent"), QStringLiteral("No recent solutions.")),
                       QStringLiteral("Recent"));
        window.reset(quick);
    } else if (which == QLatin1String("assistant")) {
        auto *assistant = new Assistant(argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString());
        window.reset(assistant);
        assistant->showAssistant(argc > 3 ? QString::fromLocal8Bit(argv[3]) : QString());
    } else if (which == QLatin1String("examples")) {
        writeExamples(scratch.path());
        window.reset(new ExampleDialog({scratch.filePath(QStringLiteral("tidekit")),
                                        scratch.filePath(QStringLiteral("flowdeck"))},
                                       ExampleDialog::defaultGroups()));
    } else if (which == QLatin1String("appbox")) {
        auto *box = new AppBox(scratch.filePath(QStringLiteral("customApp.xml")));
        QString error;
        box->addApp(writeApp(scratch.filePath(QStringLiteral("fitter")), "Curve Fitter",
                             "Fits curves to measured data."), &error);
        box->addApp(writeApp(scratch.filePath(QStringLiteral("units")), "Unit Converter",
                             "Converts between units."), &error);
        box->addApp(writeApp(scratch.filePath(QStringLiteral("logger")), "Data Logger",
                             "Records serial data."), &error);
        box->resize(420, 80);
        window.reset(box);
    } else if (which == QLatin1String("install")) {
        auto *dialog = new AppInstallDialog;
        dialog->setFolder(writeApp(scratch.filePath(QStringLiteral("fitter")), "Curve Fitter",
                                   "Fits curves to measured data and reports the residuals."));
        window.reset(dialog);
    } else if (which == QLatin1String("terms")) {
        window.reset(new TermsOfUseDialog);
    } else {
        std::fputs("usage: dialogs_gallery options|quickstart|assistant|examples|appbox|install|terms"
                   " [help collection] [keyword]\n", stderr);
        return 2;
    }
    window->show();
    return app.exec();
}
