#include "modaldriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace
{
constexpr int pollMilliseconds = 10;
constexpr int stuckMilliseconds = 5000;
} // namespace

ModalDriver::ModalDriver(const QList<Step> &steps)
    : m_steps(steps)
{
    connect(&m_timer, &QTimer::timeout, this, &ModalDriver::poll);
    m_timer.start(pollMilliseconds);
}

ModalDriver::ModalDriver(const QStringList &scripts)
    : ModalDriver(QList<Step>())
{
    for (const QString &actions : scripts)
        m_steps << script(actions);
}

ModalDriver::Step ModalDriver::script(const QString &actions)
{
    return [actions](QWidget *dialog) {
        const QStringList words = actions.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (const QString &word : words) {
            const qsizetype equals = word.indexOf(QLatin1Char('='));
            const qsizetype hash = word.indexOf(QLatin1Char('#'));
            if (equals < 0 && hash > 0)
                choose(dialog, word.left(hash).toLatin1().constData(), word.mid(hash + 1).toInt());
            else if (equals < 0 && word.endsWith(QLatin1Char('!')))
                pressReturn(dialog, word.chopped(1).toLatin1().constData());
            else if (equals < 0)
                click(dialog, word.toLatin1().constData());
            else
                type(dialog, word.left(equals).toLatin1().constData(), word.mid(equals + 1));
        }
    };
}

void ModalDriver::poll()
{
    QWidget *widget = QApplication::activeModalWidget();
    if (widget && widget == m_last) {
        if (m_shown.elapsed() > stuckMilliseconds) {
            m_seen << QStringLiteral("stuck: ") + widget->windowTitle();
            rejectDialog(widget);
        }
        return;
    }
    m_last = widget;
    m_shown.start();
    if (!widget)
        return;
    if (m_steps.isEmpty()) {
        m_seen << QStringLiteral("unexpected: ") + widget->windowTitle();
        rejectDialog(widget);
        return;
    }
    const QString text = message(widget);
    m_seen << (text.isEmpty() ? widget->windowTitle()
                              : widget->windowTitle() + QStringLiteral(" | ") + text);
    // Run the step after this poll has returned: a step may open a nested dialog, and this
    // timer would not fire again while its own slot is still running.
    const Step step = m_steps.takeFirst();
    QTimer::singleShot(0, widget, [this, step, widget] { runStep(step, widget); });
}

// A dialog that closes and brings up a message at once can leave the one under it in front
// for an instant, long enough for a poll under load; the step then waits for the next.
void ModalDriver::runStep(const Step &step, QWidget *widget)
{
    if (QApplication::activeModalWidget() == widget) {
        step(widget);
        return;
    }
    m_steps.prepend(step);
    m_seen.removeLast();
    m_last = nullptr;
}

void ModalDriver::rejectDialog(QWidget *widget)
{
    if (auto *dialog = qobject_cast<QDialog *>(widget))
        dialog->reject();
    else
        widget->close();
}

void ModalDriver::type(QWidget *dialog, const char *name, const QString &text)
{
    auto *edit = dialog->findChild<QLineEdit *>(QString::fromLatin1(name));
    if (edit)
        edit->setText(text);
}

void ModalDriver::click(QWidget *dialog, const char *name)
{
    auto *button = dialog->findChild<QAbstractButton *>(QString::fromLatin1(name));
    if (button)
        button->click();
}

void ModalDriver::pressReturn(QWidget *dialog, const char *name)
{
    if (auto *widget = dialog->findChild<QWidget *>(QString::fromLatin1(name)))
        QTest::keyClick(widget, Qt::Key_Return);
}

void ModalDriver::choose(QWidget *dialog, const char *name, int index)
{
    if (auto *combo = dialog->findChild<QComboBox *>(QString::fromLatin1(name))) {
        combo->setCurrentIndex(index);
        Q_EMIT combo->activated(index);
    }
}

QString ModalDriver::message(QWidget *dialog)
{
    auto *label = dialog->findChild<QLabel *>(QStringLiteral("text"));
    return label ? label->text() : QString();
}
