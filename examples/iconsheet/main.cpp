// Renders every icon of the framework's qelshared resource root, and a small window styled by
// its style sheets, into one PNG for looking at:
//   iconsheet OUT.png
// Each icon is shown at 16 and 24 px, at 2x of both, and its nominal size magnified three
// times without smoothing, so blurred edges and off-grid strokes are easy to spot.
#include <QtCore/qdir.h>
#include <QtCore/qdiriterator.h>
#include <QtCore/qfile.h>
#include <QtCore/qfileinfo.h>
#include <QtGui/qicon.h>
#include <QtGui/qpainter.h>
#include <QtGui/qstandarditemmodel.h>
#include <QtWidgets/qapplication.h>
#include <QtWidgets/qheaderview.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qmainwindow.h>
#include <QtWidgets/qplaintextedit.h>
#include <QtWidgets/qsplitter.h>
#include <QtWidgets/qstatusbar.h>
#include <QtWidgets/qstylefactory.h>
#include <QtWidgets/qtabwidget.h>
#include <QtWidgets/qtreeview.h>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace {

constexpr int Columns = 4;
constexpr int CellWidth = 250;
constexpr int CellHeight = 96;
constexpr int Zoom = 3;

QString styleSheet(const QString &name)
{
    QFile file(QStringLiteral(":/qelshared/styles/") + name);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "iconsheet: missing style sheet %s\n", qPrintable(name));
        return QString();
    }
    return QString::fromUtf8(file.readAll());
}

// A window laid out like the workbench's: documents on the left, properties on the right and
// the status bar below, each part styled by its own sheet.
QImage sampleWindow()
{
    QMainWindow window;
    auto *splitter = new QSplitter(&window);

    auto *documents = new QTabWidget(splitter);
    documents->setDocumentMode(true);
    documents->setTabsClosable(true);
    documents->setStyleSheet(styleSheet(QStringLiteral("multipleWindow.css")));
    const QList<QPair<QString, QString>> tabs{
        {QStringLiteral("16/project.svg"), QStringLiteral("Projects")},
        {QStringLiteral("16/script.svg"), QStringLiteral("main.vsc")},
        {QStringLiteral("16/script.svg"), QStringLiteral("model.vsc")},
    };
    for (const auto &tab : tabs) {
        auto *editor = new QPlainTextEdit(QStringLiteral("x = linspace(0, 1, 50);\ny = x .^ 2;\n"));
        documents->addTab(editor, QIcon(QStringLiteral(":/qelshared/images/") + tab.first), tab.second);
    }
    documents->setCurrentIndex(1);

    auto *model = new QStandardItemModel(0, 2, &window);
    model->setHorizontalHeaderLabels({QStringLiteral("Property"), QStringLiteral("Value")});
    const QList<QPair<QString, QString>> rows{
        {QStringLiteral("Name"), QStringLiteral("model.vsc")},
        {QStringLiteral("Path"), QStringLiteral("/home/user/alpha/model.vsc")},
        {QStringLiteral("Read only"), QStringLiteral("false")},
        {QStringLiteral("Size"), QStringLiteral("1.2 KiB")},
        {QStringLiteral("Modified"), QStringLiteral("2026-11-24 00:40")},
    };
    auto *group = new QStandardItem(QStringLiteral("File"));
    for (const auto &row : rows)
        group->appendRow({new QStandardItem(row.first), new QStandardItem(row.second)});
    model->appendRow({group, new QStandardItem});
    auto *tree = new QTreeView(splitter);
    tree->setModel(model);
    tree->setAlternatingRowColors(true);
    tree->expandAll();
    tree->resizeColumnToContents(0);
    tree->setStyleSheet(styleSheet(QStringLiteral("propertyWindow.css")));
    tree->setCurrentIndex(model->index(1, 0, group->index()));

    window.setCentralWidget(splitter);
    window.statusBar()->setStyleSheet(styleSheet(QStringLiteral("statudBar.css")));
    window.statusBar()->showMessage(QStringLiteral("Ready"));
    window.statusBar()->addPermanentWidget(new QLabel(QStringLiteral("Ln 2, Col 12")));
    window.resize(4 * CellWidth - 40, 260);
    splitter->setSizes({560, 400});
    return window.grab().toImage();
}

QList<QString> iconPaths()
{
    QList<QString> paths;
    QDirIterator it(QStringLiteral(":/qelshared/images"), {QStringLiteral("*.svg"), QStringLiteral("*.png")},
                    QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        paths.append(it.next());
    std::sort(paths.begin(), paths.end());
    return paths;
}

void drawPixmap(QPainter &painter, int x, int y, QPixmap pixmap)
{
    pixmap.setDevicePixelRatio(1);
    painter.drawPixmap(x, y, pixmap);
}

void drawCell(QPainter &painter, const QRect &cell, const QString &path)
{
    const QIcon icon(path);
    const int nominal = path.contains(QStringLiteral("/24/")) ? 24 : 16;
    int x = cell.left() + 6;
    const int top = cell.top() + 6;
    const std::pair<int, qreal> renders[] = {{16, 1.0}, {24, 1.0}, {16, 2.0}, {24, 2.0}};
    for (const auto &[size, ratio] : renders) {
        drawPixmap(painter, x, top, icon.pixmap(QSize(size, size), ratio));
        x += int(size * ratio) + 6;
    }
    const QImage actual = icon.pixmap(QSize(nominal, nominal), 1.0).toImage();
    painter.drawImage(QRect(x, top, nominal * Zoom, nominal * Zoom), actual);
    painter.setPen(QColor(0x33, 0x3a, 0x40));
    painter.drawText(cell.left() + 6, cell.bottom() - 6,
                     QFileInfo(path).dir().dirName() + QLatin1Char('/') + QFileInfo(path).fileName());
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QString out = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("iconsheet.png");

    const QList<QString> paths = iconPaths();
    if (paths.isEmpty()) {
        std::fprintf(stderr, "iconsheet: no icons under :/qelshared/images\n");
        return 1;
    }
    const QImage sample = sampleWindow();
    const int rows = (int(paths.size()) + Columns - 1) / Columns;
    QImage sheet(Columns * CellWidth, rows * CellHeight + sample.height() + 20, QImage::Format_RGB32);
    sheet.fill(QColor(0xef, 0xef, 0xef));
    QPainter painter(&sheet);
    for (int i = 0; i < paths.size(); ++i) {
        const QRect cell((i % Columns) * CellWidth, (i / Columns) * CellHeight, CellWidth, CellHeight);
        // Alternate white and window-grey cells: the icons must read on both.
        if ((i / Columns + i % Columns) % 2 == 0)
            painter.fillRect(cell, Qt::white);
        drawCell(painter, cell, paths.at(i));
    }
    painter.drawImage(20, rows * CellHeight + 10, sample);
    painter.end();
    if (!sheet.save(out)) {
        std::fprintf(stderr, "iconsheet: cannot write %s\n", qPrintable(out));
        return 1;
    }
    std::printf("Wrote %s (%d icons)\n", qPrintable(out), int(paths.size()));
    return 0;
}
