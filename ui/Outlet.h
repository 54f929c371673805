#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <string>

#include "imaging/Fatal.h"

namespace vellumo {

// A named, non-owning reference to one control of the window, found by its
// objectName in the loaded interface description. The window's widget tree
// owns the control; the reference turns empty when the control goes.
//
// A control that the description lacks, or that is of another kind, stops the
// program when the outlet is connected; using an outlet that is not connected
// stops it too. Both name the outlet, so a broken description is found at
// once instead of as a silent no-op later.
template <class T>
class Outlet {
  public:
    explicit Outlet(const char* name) : name_(name) {}

    // Finds the control named like this outlet anywhere under `root`.
    void Connect(const QObject& root);

    T* get() const;
    T* operator->() const { return get(); }
    T& operator*() const { return *get(); }

    const char* name() const { return name_; }
    bool isConnected() const { return !control_.isNull(); }

  private:
    const char* name_;
    QPointer<T> control_;
};

template <class T>
void Outlet<T>::Connect(const QObject& root) {
    QObject* found = root.findChild<QObject*>(QString::fromLatin1(name_));
    if (found == nullptr) {
        Fatal(std::string("the window has no control named ") + name_);
    }
    T* typed = qobject_cast<T*>(found);
    if (typed == nullptr) {
        Fatal(std::string("the window's control ") + name_ + " is a " +
              found->metaObject()->className() + ", not a " + T::staticMetaObject.className());
    }
    control_ = typed;
}

template <class T>
T* Outlet<T>::get() const {
    if (control_.isNull()) {
        Fatal(std::string("the outlet ") + name_ + " is not connected to a control");
    }
    return control_.data();
}

}  // namespace vellumo
