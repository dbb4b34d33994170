// vigil-icons: draws the program's icons and writes them as Windows .ico files, with the
// program's picture as a 256 px PNG beside them.
//
//   vigil-icons FOLDER [--sheet FILE] [--line FILE]
//
// Each icon goes to FOLDER/NAME.ico as a 32 by 32 picture: Qt's "ico" writer puts one picture
// in a file, and a 16 px icon is that picture scaled down, which the drawings are made for
// (see IconKit.h). --sheet also writes a contact sheet of the files as they read back, at 16
// and 32 px, magnified, and in a tree as it shows them, for a person to look at. --line writes
// the demo's picture of a packing line, the background of its dashboards, as a PNG.

#include "IconArt.h"
#include "LineArt.h"

#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <QTextStream>
#include <memory>

namespace {
constexpr int IconSize = 32;
constexpr int ProgramPictureSize = 256;

QTextStream& err()
{
    static QTextStream stream(stderr);
    return stream;
}

bool write(const QImage& image, const QString& path, const QByteArray& format)
{
    QImageWriter writer(path, format);
    if (writer.write(image))
        return true;
    err() << "vigil-icons: cannot write " << path << ": " << writer.errorString() << Qt::endl;
    return false;
}

// Beside each name: at 16 and 32 px on a light and a dark ground, then both magnified 4 times.
void drawSheetCell(QPainter& p, QPoint at, const QString& name, const QImage& icon)
{
    const QImage small = icon.scaled(16, 16, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    p.setPen(Qt::black);
    p.drawText(at + QPoint(0, 12), name);
    const int top = at.y() + 20;
    int x = at.x();
    p.fillRect(QRect(x, top, 64, 40), Qt::white);
    p.drawImage(QPoint(x + 4, top + 12), small);
    p.drawImage(QPoint(x + 26, top + 4), icon);
    p.fillRect(QRect(x, top + 44, 64, 40), QColor(0x35, 0x35, 0x35));
    p.drawImage(QPoint(x + 4, top + 56), small);
    p.drawImage(QPoint(x + 26, top + 48), icon);
    x += 72;
    p.fillRect(QRect(x, top, 64, 64), Qt::white);
    p.drawImage(QRect(x, top, 64, 64), small);
    x += 72;
    p.fillRect(QRect(x, top, 128, 128), Qt::white);
    p.drawImage(QRect(x, top, 128, 128), icon);
}

// A few rows of a tree, with the state colours of the tree's palette.
void drawTreeSample(QPainter& p, QPoint at, const QString& folder)
{
    struct Row
    {
        int indent;
        const char* icon;
        const char* text;
        QColor background;
        QColor foreground;
    };
    const Row rows[] = {
        {0, "Group", "All printers", Qt::white, Qt::black},
        {1, "Group", "Line 1", Qt::white, Qt::black},
        {2, "Printer_C_Series", "Line 1 coder", Qt::white, QColor(0, 178, 0)},
        {2, "Printer_A_Series", "Line 1 case coder", QColor(255, 255, 0), Qt::black},
        {2, "LocalLabelPrinter", "Line 1 labeller", QColor(255, 0, 0), Qt::white},
        {1, "Group", "Line 2", Qt::white, Qt::black},
        {2, "Printer_C_Series", "Line 2 coder", Qt::white, Qt::black},
        {2, "LocalLabelPrinter", "Line 2 labeller", Qt::white, Qt::gray},
    };
    p.fillRect(QRect(at, QSize(260, 20 * int(std::size(rows)) + 8)), Qt::white);
    int y = at.y() + 4;
    for (const Row& row : rows) {
        const int x = at.x() + 6 + 18 * row.indent;
        const QImage icon(folder + QLatin1Char('/') + QLatin1String(row.icon) +
                          QStringLiteral(".ico"));
        p.drawImage(QRect(x, y + 2, 16, 16),
                    icon.scaled(16, 16, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        const QString text = QLatin1String(row.text);
        const QRect box(x + 20, y + 1, p.fontMetrics().horizontalAdvance(text) + 6, 18);
        p.fillRect(box, row.background);
        p.setPen(row.foreground);
        p.drawText(box, Qt::AlignCenter, text);
        y += 20;
    }
}

bool writeSheet(const QString& folder, const QString& sheetPath)
{
    constexpr int CellWidth = 360;
    constexpr int CellHeight = 160;
    constexpr int Columns = 3;
    const QList<IconArt>& icons = allIcons();
    const int rows = int((icons.size() + Columns - 1) / Columns);
    QImage sheet(CellWidth * Columns + 16, CellHeight * rows + 300, QImage::Format_RGB32);
    sheet.fill(QColor(0xe8, 0xe8, 0xe8));
    QPainter p(&sheet);
    QFont font = p.font();
    font.setPixelSize(12);
    p.setFont(font);
    bool ok = true;
    for (int index = 0; index < icons.size(); ++index) {
        const QString path = folder + QLatin1Char('/') + icons[index].name + QStringLiteral(".ico");
        QImageReader reader(path, "ico");
        const QImage icon = reader.read();
        if (icon.isNull() || icon.size() != QSize(IconSize, IconSize)) {
            err() << "vigil-icons: " << path
                  << " doesn't read back as a 32 px picture: " << reader.errorString() << Qt::endl;
            ok = false;
            continue;
        }
        const QPoint at(8 + CellWidth * (index % Columns), 8 + CellHeight * (index / Columns));
        drawSheetCell(p, at, icons[index].name, icon);
    }
    const int bottom = 8 + CellHeight * rows;
    drawTreeSample(p, QPoint(8, bottom), folder);
    const QImage program(folder + QStringLiteral("/Vigil.png"));
    p.drawImage(QPoint(8 + CellWidth, bottom), program);
    p.end();
    return write(sheet, sheetPath, "png") && ok;
}
} // namespace

int main(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    QString sheetPath;
    QString linePath;
    for (auto [flag, path] : {std::pair{QStringLiteral("--sheet"), &sheetPath},
                              std::pair{QStringLiteral("--line"), &linePath}}) {
        const qsizetype at = arguments.indexOf(flag);
        if (at < 0)
            continue;
        if (at + 1 >= arguments.size()) {
            err() << "vigil-icons: " << flag << " wants a file name" << Qt::endl;
            return 2;
        }
        *path = arguments.takeAt(at + 1);
        arguments.removeAt(at);
    }
    if (arguments.size() != 1 || arguments.first().startsWith(QLatin1Char('-'))) {
        err() << "Usage: vigil-icons FOLDER [--sheet FILE] [--line FILE]\n"
                 "Writes the program's icons into FOLDER as NAME.ico, and Vigil.png;\n"
                 "--sheet also writes a contact sheet of them to FILE (a PNG),\n"
                 "--line the demo's picture of a packing line to FILE (a PNG).\n";
        err().flush();
        return 2;
    }
    const QString folder = arguments.first();
    if (!QDir().mkpath(folder)) {
        err() << "vigil-icons: cannot make the folder " << folder << Qt::endl;
        return 1;
    }
    if (!QImageWriter::supportedImageFormats().contains("ico")) {
        err() << "vigil-icons: this Qt has no \"ico\" image writer (the imageformats plugin "
                 "libqico)"
              << Qt::endl;
        return 1;
    }

    bool ok = true;
    for (const IconArt& art : allIcons())
        ok = write(render(art, IconSize), folder + QLatin1Char('/') + art.name + ".ico", "ico") &&
             ok;
    for (const IconArt& art : allIcons())
        if (art.name == QLatin1String("Vigil"))
            ok = write(render(art, ProgramPictureSize), folder + QStringLiteral("/Vigil.png"),
                       "png") &&
                 ok;

    if (!sheetPath.isEmpty() || !linePath.isEmpty()) {
        // Text on the pictures needs the fonts, and so an application; no window is shown.
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        int appArgc = 1;
        QGuiApplication application(appArgc, argv);
        if (!sheetPath.isEmpty())
            ok = writeSheet(folder, sheetPath) && ok;
        if (!linePath.isEmpty())
            ok = write(LineArt::draw(), linePath, "png") && ok;
    }
    return ok ? 0 : 1;
}
