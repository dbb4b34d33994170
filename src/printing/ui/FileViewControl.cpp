#include "printing/ui/FileViewControl.h"

#include "core/DragData.h"
#include "core/IconFiles.h"
#include "drivers/Application.h"
#include "printing/clsLBXHandler.h"
#include "printing/ui/FileViewListing.h"
#include "services/ErrorBox.h"

#include <QApplication>
#include <QDrag>
#include <QHeaderView>
#include <QMimeData>
#include <QMouseEvent>
#include <QTreeWidget>

namespace {
const QString Context = QStringLiteral("FileViewControl - ");
// Folder, label set, format: the tree's folder, a stack of labels, a label.
const char* const ImageFiles[] = {"Group.ico", "LabelSet.ico", "FileView.ico"};
} // namespace

FileViewControl::FileViewControl(QWidget* parent)
    : QWidget(parent)
    , treeFileView(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("FileView"));
    treeFileView->setObjectName(QStringLiteral("treeFileView"));
    treeFileView->setHeaderHidden(true);
    treeFileView->setColumnCount(1);
    treeFileView->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    treeFileView->viewport()->installEventFilter(this);
    for (int image = 0; image < 3; ++image) {
        const QString path = IconFile(QLatin1String(ImageFiles[image]));
        m_images[image] = path.isEmpty() ? QIcon() : QIcon(path);
    }
    PopulateFileView();
}

void FileViewControl::PopulateFileView()
{
    RunTrapped(Context + QStringLiteral("PopulateFileView"), [this] {
        treeFileView->hide();
        ClearTree();
        const QString root = GetGlobalLBX().LBX_App().FileViewRootFolder();
        AddFoldersAndMessages(root, true);
        treeFileView->show();
    });
}

void FileViewControl::ClearTree()
{
    RunTrapped(Context + QStringLiteral("ClearTree"), [this] {
        treeFileView->clear();
        m_itemsByKey.clear();
    });
}

// Items right in the root folder each go to the top, so that level reads in reverse; inside a
// folder they follow in order.
void FileViewControl::AddFoldersAndMessages(const QString& sPath, bool bTopLevel)
{
    // A missing root folder ends the filling with its box, the tree left empty and hidden.
    const QList<FileViewListing::Entry> entries = FileViewListing::list(sPath);
    RunTrapped(Context + QStringLiteral("AddFoldersAndMessages"), [&] {
        for (const FileViewListing::Entry& entry : entries) {
            auto* item = new QTreeWidgetItem({entry.name});
            const QString key = FileViewListing::keyOf(entry.path);
            const int image = int(entry.kind);
            item->setData(0, KeyRole, key);
            item->setData(0, ImageRole, image);
            item->setIcon(0, m_images[image - 1]);
            QTreeWidgetItem* parent = m_itemsByKey.value(FileViewListing::keyOf(entry.parentPath));
            if (bTopLevel && entry.parentPath.isEmpty())
                treeFileView->insertTopLevelItem(0, item);
            else if (parent)
                parent->addChild(item);
            else
                treeFileView->addTopLevelItem(item);
            m_itemsByKey.insert(key, item);
        }
    });
}

QString FileViewControl::dragTextAt(const QPoint& position) const
{
    const QTreeWidgetItem* item = treeFileView->itemAt(position);
    return item ? FileDragText + QLatin1Char(' ') + item->data(0, KeyRole).toString() : QString();
}

bool FileViewControl::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != treeFileView->viewport())
        return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonPress) {
        treeFileView_MouseDown(static_cast<QMouseEvent*>(event)->position().toPoint());
    } else if (event->type() == QEvent::MouseButtonRelease) {
        m_bPressed = false;
    } else if (event->type() == QEvent::MouseMove) {
        const auto* move = static_cast<QMouseEvent*>(event);
        if (m_bPressed && (move->buttons() & Qt::LeftButton) &&
            (move->position().toPoint() - m_pressPosition).manhattanLength() >=
                QApplication::startDragDistance()) {
            m_bPressed = false;
            treeFileView_OLEStartDrag();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void FileViewControl::treeFileView_MouseDown(const QPoint& position)
{
    RunTrapped(Context + QStringLiteral("treeFileView_MouseDown"), [&] {
        m_pressPosition = position;
        m_bPressed = true;
    });
}

// A folder can be dragged like a file; the drop refuses it by its extension.
void FileViewControl::treeFileView_OLEStartDrag()
{
    RunTrapped(Context + QStringLiteral("treeFileView_OLEStartDrag"), [this] {
        const QString text = dragTextAt(m_pressPosition);
        if (text.isEmpty())
            return;
        auto* data = new QMimeData;
        data->setText(text);
        auto* drag = new QDrag(treeFileView);
        drag->setMimeData(data);
        drag->exec(Qt::CopyAction);
    });
}

void FileViewControl::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    RunTrapped(Context + QStringLiteral("UserControl_Resize"),
               [this] { treeFileView->setGeometry(rect()); });
}
