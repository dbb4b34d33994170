#include "printing/clsLBXHandler.h"
#include "printing/ui/FileViewControl.h"
#include "support/FakeApplication.h"
#include "support/ServicesFixture.h"
#include "ui/WidgetApplication.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTreeWidget>

namespace {
class FileViewTest : public ServicesFixture
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    void SetUp() override
    {
        ServicesFixture::SetUp();
        m_root = m_labels.path();
        m_application->fileViewRootFolder = m_root;
        InstallApplicationFactory(FakeApplication::attachTo(m_application));
        for (const char* file : {"b.FMT", "a.FMT", ".hidden.FMT", "z.LBS", "x.lbs", "notes.txt",
                                 "Sub/s.FMT", "Sub/s.LBS", "Sub/Inner/i.FMT", "Sub2/a.FMT"}) {
            const QString path = m_labels.filePath(QLatin1String(file));
            QDir().mkpath(QFileInfo(path).path());
            QFile(path).open(QIODevice::WriteOnly);
        }
        QDir(m_root).mkdir(QStringLiteral("Alpha"));
    }

    void TearDown() override
    {
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        ServicesFixture::TearDown();
    }

    // Each item as "name image" with its children in brackets, from the top.
    static QString outline(const QTreeWidgetItem& item)
    {
        QString text =
            item.text(0) + QLatin1Char(' ') + item.data(0, FileViewControl::ImageRole).toString();
        if (item.childCount() == 0)
            return text;
        QStringList children;
        for (int i = 0; i < item.childCount(); ++i)
            children.append(outline(*item.child(i)));
        return text + QStringLiteral(" [") + children.join(QStringLiteral(", ")) + QLatin1Char(']');
    }

    static QStringList topLevel(const QTreeWidget& tree)
    {
        QStringList items;
        for (int i = 0; i < tree.topLevelItemCount(); ++i)
            items.append(outline(*tree.topLevelItem(i)));
        return items;
    }

    QTemporaryDir m_labels;
    QString m_root;
    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
};

TEST_F(FileViewTest, TheRootLevelReadsInReverseAndAFolderInOrderEachItemKeyedByItsPath)
{
    FileViewControl view;
    auto& tree = ChildOf<QTreeWidget>(view, "treeFileView");
    EXPECT_EQ(topLevel(tree),
              (QStringList{"b.FMT 3", "a.FMT 3", ".hidden.FMT 3", "z.LBS 2", "x.lbs 2",
                           "Sub2 1 [a.FMT 3]", "Sub 1 [Inner 1 [i.FMT 3], s.LBS 2, s.FMT 3]",
                           "Alpha 1"}));
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());

    // The same name in two folders: two keys.
    const QTreeWidgetItem* rootFormat = tree.topLevelItem(1);
    const QTreeWidgetItem* subFormat = tree.topLevelItem(5)->child(0);
    EXPECT_EQ(rootFormat->data(0, FileViewControl::KeyRole).toString(), "ID" + m_root + "/a.FMT");
    EXPECT_EQ(subFormat->data(0, FileViewControl::KeyRole).toString(),
              "ID" + m_root + "/Sub2/a.FMT");

    // A drag carries the key of the item it starts on, a folder's too; off the items nothing.
    view.resize(300, 600);
    view.show();
    tree.expandAll();
    EXPECT_EQ(view.dragTextAt(tree.visualItemRect(rootFormat).center()),
              "MSFileDir_ ID" + m_root + "/a.FMT");
    EXPECT_EQ(view.dragTextAt(tree.visualItemRect(tree.topLevelItem(6)).center()),
              "MSFileDir_ ID" + m_root + "/Sub");
    EXPECT_EQ(view.dragTextAt(QPoint(5, tree.viewport()->height() - 2)), "");
}

TEST_F(FileViewTest, AMissingRootFolderGivesABoxAndAnEmptyHiddenTree)
{
    m_application->fileViewRootFolder = m_root + QStringLiteral("/gone");
    FileViewControl view;
    view.show();
    const auto& tree = ChildOf<QTreeWidget>(view, "treeFileView");
    EXPECT_EQ(tree.topLevelItemCount(), 0);
    EXPECT_FALSE(tree.isVisible());
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_TRUE(m_dialogs->boxes()[0].title.startsWith("FileViewControl - PopulateFileView"));
    EXPECT_TRUE(m_dialogs->boxes()[0].text.contains("/gone"));
}
} // namespace
