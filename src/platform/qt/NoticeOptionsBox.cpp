#include "platform/qt/NoticeOptionsBox.h"

#include "services/NoticeOptions.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QSpinBox>

NoticeOptionsBox::NoticeOptionsBox(QWidget* parent)
    : QGroupBox(tr("Notices"), parent)
    , chkNotify(new QCheckBox(tr("Tell me when a printer stays in trouble"), this))
    , spnDelay(new QSpinBox(this))
    , txtSound(new QLineEdit(this))
{
    setObjectName(QStringLiteral("fraNotices"));
    chkNotify->setObjectName(QStringLiteral("chkNotify"));
    spnDelay->setObjectName(QStringLiteral("spnDelay"));
    txtSound->setObjectName(QStringLiteral("txtSound"));

    spnDelay->setRange(0, NoticeOptions::MaxDelaySeconds);
    spnDelay->setSuffix(tr(" seconds"));
    spnDelay->setSpecialValueText(tr("at the next check"));
    txtSound->setPlaceholderText(tr("no sound"));

    auto* form = new QFormLayout(this);
    form->addRow(chkNotify);
    form->addRow(tr("After:"), spnDelay);
    form->addRow(tr("Sound file:"), txtSound);
    connect(chkNotify, &QCheckBox::toggled, spnDelay, &QWidget::setEnabled);
    connect(chkNotify, &QCheckBox::toggled, txtSound, &QWidget::setEnabled);

    const NoticeOptions kept = NoticeOptions::load();
    chkNotify->setChecked(kept.enabled);
    spnDelay->setValue(kept.delaySeconds);
    txtSound->setText(kept.soundFile);
    spnDelay->setEnabled(kept.enabled);
    txtSound->setEnabled(kept.enabled);
}

void NoticeOptionsBox::save() const
{
    NoticeOptions{chkNotify->isChecked(), spnDelay->value(), txtSound->text().trimmed()}.save();
}
