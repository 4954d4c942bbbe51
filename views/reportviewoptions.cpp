#include "views/reportviewoptions.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "lib/qt/mlcolorpanel.h"
#include "lib/qt/mlcombobox.h"
#include "lib/qt/mlselectcoloraction.h"
#include "platform/global.h"
#include "views/reportscrollview.h"
#include "views/reportsettings.h"
#include "views/reportview.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

const QString ReportViewOptions::sampleName = QStringLiteral("reportviewoptionsexample");

ReportViewOptions::ReportViewOptions(QWidget *parent)
    : QWidget(parent)
    , m_preview(new ReportScrollView(this))
{
    auto *top = new QHBoxLayout;
    top->addWidget(createAlignment());
    top->addWidget(createColors(), 1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_preview, 1);
    createSample();
}

ReportViewOptions::~ReportViewOptions()
{
    m_preview->reportView()->setRecord(nullptr);
    if (!m_sample->save())
        qDebug() << "The report sample could not be saved:" << m_sample->fullPath();
    QFile::remove(m_sample->fullPath());
    // Its own last save would bring the file back.
    m_sample->setReadOnly(true);
    delete m_sample;
}

int ReportViewOptions::alignIndex(int align)
{
    if (align == ReportSettings::alignRight)
        return 0;
    if (align == ReportSettings::alignLeft)
        return 1;
    return 2;
}

int ReportViewOptions::alignValue(int index)
{
    if (index == 0)
        return ReportSettings::alignRight;
    if (index == 1)
        return ReportSettings::alignLeft;
    return ReportSettings::alignCenter;
}

MLComboBox *ReportViewOptions::createAlignBox(int align)
{
    auto *box = new MLComboBox(false, this);
    box->addItems({ tr("Right"), tr("Left"), tr("New Item"), tr("Center") });
    box->setCurrentIndex(alignIndex(align));
    connect(box, &QComboBox::activated, this, &ReportViewOptions::changed);
    return box;
}

QWidget *ReportViewOptions::createAlignment()
{
    const ReportSettings settings = ReportSettings::read();
    auto *group = new QGroupBox(tr("Alignment"), this);
    auto *grid = new QGridLayout(group);
    m_al = createAlignBox(settings.labelAlign);
    m_al->setObjectName(QStringLiteral("al"));
    m_av = createAlignBox(settings.valueAlign);
    m_av->setObjectName(QStringLiteral("av"));
    grid->addWidget(new QLabel(tr("Labels:"), group), 0, 0);
    grid->addWidget(m_al, 0, 1);
    grid->addWidget(new QLabel(tr("Values:"), group), 1, 0);
    grid->addWidget(m_av, 1, 1);
    grid->setRowStretch(2, 1);
    return group;
}

QWidget *ReportViewOptions::createColors()
{
    const ReportSettings settings = ReportSettings::read();
    const struct {
        const char *label;
        int kind;
        QColor color;
    } rows[] = {
        { QT_TR_NOOP("Labels:"), MLColorPanel::TextColors, settings.labelColor },
        { QT_TR_NOOP("Values:"), MLColorPanel::TextColors, settings.valueColor },
        { QT_TR_NOOP("Lines:"), MLColorPanel::OptionalColors, settings.lineColor },
        { QT_TR_NOOP("Separator:"), MLColorPanel::OptionalColors, settings.separatorColor },
        { QT_TR_NOOP("Background:"), MLColorPanel::BackgroundColors, settings.background },
    };
    auto *group = new QGroupBox(tr("Colors"), this);
    auto *grid = new QGridLayout(group);
    for (int i = 0; i < 5; ++i) {
        m_actions[i] = new MLSelectColorAction(rows[i].kind, rows[i].color, this);
        auto *button = new QToolButton(group);
        button->setObjectName(QStringLiteral("b%1").arg(i + 1));
        button->setDefaultAction(m_actions[i]);
        connect(m_actions[i], &MLSelectColorAction::activated, this, &ReportViewOptions::changed);
        // Two pairs of label and button in a row.
        grid->addWidget(new QLabel(tr(rows[i].label), group), i / 2, (i % 2) * 2);
        grid->addWidget(button, i / 2, (i % 2) * 2 + 1);
    }
    return group;
}

// A card of its own, so the preview is a real report; a stale file of it is replaced.
void ReportViewOptions::createSample()
{
    const QString path = Global::applicationFileName(qApp->objectName(), sampleName);
    QFile::remove(path);
    m_sample = new DataManager(path);
    QList<FieldDef> fields;
    for (const QString &title : { tr("No"), tr("Title"), tr("Length"), tr("Price") }) {
        FieldDef field;
        field.type = FieldDef::String;
        field.title = field.label = title;
        fields.append(field);
    }
    m_sample->setFields(fields, true);
    DataRecord *record = m_sample->newRecord();
    const QStringList values { QStringLiteral("2"), QStringLiteral("Premortal Dance"),
        QStringLiteral("5min, 13sec"), QStringLiteral("1.24$") };
    for (int i = 0; i < values.size(); ++i)
        record->setStringValue(i, values.at(i));
    m_sample->add(record);
    if (!m_sample->save())
        qDebug() << "The report sample stays in memory; it could not be written:" << path;
    m_preview->reportView()->setRecord(record);
}

void ReportViewOptions::changed()
{
    ReportSettings settings;
    settings.labelColor = m_actions[0]->color();
    settings.valueColor = m_actions[1]->color();
    settings.lineColor = m_actions[2]->color();
    settings.separatorColor = m_actions[3]->color();
    settings.background = m_actions[4]->color();
    settings.labelAlign = alignValue(m_al->currentIndex());
    settings.valueAlign = alignValue(m_av->currentIndex());
    settings.write();
    ReportView *view = m_preview->reportView();
    view->readSettings();
    view->layout();
}
