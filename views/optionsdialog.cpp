#include "views/optionsdialog.h"

#include "lib/qt/mltabwidget.h"
#include "lib/qt/mrllistview.h"
#include "platform/config.h"
#include "views/colorswidget.h"
#include "views/reportviewoptions.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{
const QString pageKey = QStringLiteral("optionsPage");
} // namespace

OptionsDialog::OptionsDialog(QWidget *parent)
    : QDialog(parent)
    , m_tabs(new MLTabWidget(this))
    , m_colors(new ColorsWidget)
    , m_report(new ReportViewOptions)
    , m_reportSettings(ReportSettings::read())
{
    setWindowTitle(tr("Options"));
    for (int i = 0; i < 4; ++i)
        m_rowColors[i] = m_colors->preview()->rowColor(i);
    m_tabs->addTab(m_colors, QStringLiteral("color"), tr("View"));
    m_tabs->addTab(m_report, QStringLiteral("background"), tr("Report View"));
    Config config(qApp->objectName());
    config.setGroup(QStringLiteral("Options"));
    m_tabs->setCurrentIndex(config.readNumEntry(pageKey, 1) == 2 ? 1 : 0);
    connect(m_tabs, &QTabWidget::currentChanged, this, &OptionsDialog::pageChanged);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("btnOk"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("btnCancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs, 1);
    layout->addWidget(buttons);
    resize(420, 480);
}

void OptionsDialog::pageChanged(int index)
{
    Config config(qApp->objectName());
    config.setGroup(QStringLiteral("Options"));
    config.writeEntry(pageKey, index + 1);
}

// The pages store every change at once; cancelling stores the colours found at the start.
void OptionsDialog::reject()
{
    m_colors->preview()->setRowColors(
        m_rowColors[0], m_rowColors[1], m_rowColors[2], m_rowColors[3]);
    m_reportSettings.write();
    QDialog::reject();
}
