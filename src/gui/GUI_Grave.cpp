#include "gui/GUI_Grave.h"

#include "gui/GUI_Object.h"

#include <QCoreApplication>
#include <QLayout>
#include <QMdiSubWindow>
#include <QTimer>
#include <QWidget>

#include <memory>

int GUI_Grave::mDepth = 0;
std::vector<const GUI_Object*> GUI_Grave::mCondemned;

namespace {

bool isCounted(const QObject& object)
{
    return dynamic_cast<const COM_Object*>(&object) != nullptr;
}

void detachWidget(QWidget& widget)
{
    if (auto* const frame = qobject_cast<QMdiSubWindow*>(widget.parentWidget())) {
        frame->setWidget(nullptr);
        widget.hide();
        widget.setParent(nullptr);
        frame->hide();
        frame->deleteLater();
        return;
    }
    if (!widget.isHidden()) {
        widget.hide();
    }
    if (widget.parentWidget() != nullptr) {
        widget.setParent(nullptr);
    }
}

void detachLayout(QLayout& layout)
{
    // The layout of a widget cannot leave it; it does so in its own destructor.
    if (auto* const whole = qobject_cast<QLayout*>(layout.parent())) {
        whole->removeItem(&layout);
        layout.setParent(nullptr);
    }
}

} // namespace

void GUI_Grave::bury(const GUI_Object& object, QObject& qtSide)
{
    detach(qtSide);
    if (mDepth == 0) {
        delete &object;
    } else {
        mCondemned.push_back(&object);
    }
}

void GUI_Grave::flush()
{
    // Inside a dialog that a handler has opened nothing is deleted; the end of that handler asks again.
    while (mDepth == 0 && !mCondemned.empty()) {
        std::vector<const GUI_Object*> condemned;
        condemned.swap(mCondemned);
        for (const GUI_Object* const object : condemned) {
            delete object;
        }
    }
}

void GUI_Grave::detach(QObject& qtSide)
{
    if (auto* const widget = qobject_cast<QWidget*>(&qtSide)) {
        detachWidget(*widget);
    } else if (auto* const layout = qobject_cast<QLayout*>(&qtSide)) {
        detachLayout(*layout);
    } else if (qtSide.parent() != nullptr) {
        qtSide.setParent(nullptr);
    }
}

void GUI_Grave::orphanCounted(QObject& qtSide)
{
    // A copy: who is detached leaves the list.
    const QObjectList& children = qtSide.children();
    for (QObject* const child : std::vector<QObject*>(children.begin(), children.end())) {
        if (!isCounted(*child)) {
            orphanCounted(*child);
        } else if (!qtSide.isWidgetType() || qobject_cast<QLayout*>(child) == nullptr) {
            detach(*child);
        }
    }
}

void GUI_Grave::emptyLayout(QLayout& layout)
{
    while (QLayoutItem* const item = layout.takeAt(0)) {
        QLayout* const part = item->layout();
        if (part == nullptr) {
            delete item;
            continue;
        }
        part->setParent(nullptr);
        if (!isCounted(*part)) {
            const std::unique_ptr<QLayout> owned(part);
            emptyLayout(*part);
        }
    }
}

void GUI_Grave::leaveHandler()
{
    --mDepth;
    if (mDepth > 0 || mCondemned.empty()) {
        return;
    }
    if (QCoreApplication::instance() != nullptr) {
        auto* const timer = new QTimer(QCoreApplication::instance());
        timer->setSingleShot(true);
        QObject::connect(timer, &QTimer::timeout, timer, [timer] {
            timer->deleteLater();
            flush();
        });
        timer->start(0);
    } else {
        flush();
    }
}
