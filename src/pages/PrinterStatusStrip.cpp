#include "pages/PrinterStatusStrip.h"

#include "platform/qt/QtTreeView.h"
#include "platform/qt/Twips.h"

#include <QBoxLayout>
#include <QFrame>
#include <QLabel>

namespace {
constexpr int IconBoxTwips = 480;
constexpr int IconBox = IconBoxTwips / TwipsPerPixel;
// The state's colour shows as a ring around the icon, also where the icon has no
// transparent edge.
constexpr int ColourRing = 4;
constexpr int IconSize = IconBox - 2 * ColourRing;
} // namespace

PrinterStatusStrip::PrinterStatusStrip(bool bShowsTimeout, QWidget* parent)
    : QWidget(parent)
    , m_imgGeneralBackground(new QFrame(this))
    , m_imgGeneral(new QLabel(m_imgGeneralBackground))
    , m_lblGeneralInfo(new QLabel(QStringLiteral("general info"), this))
{
    m_imgGeneralBackground->setObjectName(QStringLiteral("imgGeneralBackground"));
    m_imgGeneralBackground->setFixedSize(IconBox, IconBox);
    m_imgGeneralBackground->setAutoFillBackground(true);
    // A thin outline keeps the box in sight when the state's colour is the window's own.
    m_imgGeneralBackground->setFrameStyle(QFrame::Box | QFrame::Plain);
    QPalette outline = m_imgGeneralBackground->palette();
    outline.setColor(QPalette::WindowText, outline.color(QPalette::Mid));
    m_imgGeneralBackground->setPalette(outline);
    m_imgGeneral->setObjectName(QStringLiteral("imgGeneral"));
    m_imgGeneral->setGeometry(ColourRing, ColourRing, IconSize, IconSize);
    m_imgGeneral->setAlignment(Qt::AlignCenter);

    m_lblGeneralInfo->setObjectName(QStringLiteral("lblGeneralInfo"));
    QFont nameFont = m_lblGeneralInfo->font();
    nameFont.setBold(true);
    nameFont.setPointSizeF(nameFont.pointSizeF() * 1.25);
    m_lblGeneralInfo->setFont(nameFont);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addStretch();
    texts->addWidget(m_lblGeneralInfo);
    if (bShowsTimeout) {
        m_lblTimeout = new QLabel(this);
        m_lblTimeout->setObjectName(QStringLiteral("lblTimeout"));
        texts->addWidget(m_lblTimeout);
    }
    texts->addStretch();

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    row->addWidget(m_imgGeneralBackground, 0, Qt::AlignVCenter);
    row->addLayout(texts, 1);
}

void PrinterStatusStrip::setColour(quint32 colour)
{
    QPalette palette = m_imgGeneralBackground->palette();
    palette.setColor(QPalette::Window, QtTreeView::toColor(colour, palette));
    m_imgGeneralBackground->setPalette(palette);
}

void PrinterStatusStrip::setIcon(const QString& path)
{
    // Status changes come with every poll; the file is read when it changes.
    if (path == m_iconPath)
        return;
    m_iconPath = path;
    QPixmap picture(path);
    if (!picture.isNull() && picture.size() != QSize(IconSize, IconSize))
        picture = picture.scaled(IconSize, IconSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    m_imgGeneral->setPixmap(picture);
}

void PrinterStatusStrip::setName(const QString& name)
{
    m_lblGeneralInfo->setText(name);
}

void PrinterStatusStrip::setTimeout(const QString& text)
{
    if (m_lblTimeout)
        m_lblTimeout->setText(text);
}
