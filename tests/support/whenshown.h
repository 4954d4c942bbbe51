#ifndef WHENSHOWN_H
#define WHENSHOWN_H

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

// Runs answer on the next window of type T that runs modally or as the active pop-up, once
// it is on screen: tests answer dialogs that a call under test opens and waits for. Gives up
// silently after three seconds, or when owner goes (a test that expects no window passes one
// that lives as long as its check).
template <class T>
void whenShown(const std::function<void(T *)> &answer, QObject *owner = nullptr)
{
    auto *poll = new QTimer(owner);
    poll->setInterval(10);
    auto tries = std::make_shared<int>(0);
    QObject::connect(poll, &QTimer::timeout, poll, [poll, tries, answer] {
        QWidget *running = QApplication::activePopupWidget();
        if (!running)
            running = QApplication::activeModalWidget();
        T *window = qobject_cast<T *>(running);
        if (window && window->isVisible()) {
            poll->stop();
            poll->deleteLater();
            answer(window);
        } else if (++*tries > 300) {
            poll->stop();
            poll->deleteLater();
        }
    });
    poll->start();
}

#endif
