#pragma once

/// Holds the creating reference of a new object and gives it up when the scope ends.
///
///     const COM_Scoped milieu(QV_1DMilieu::New());
///     setMilieu(*milieu);
template <typename T>
class COM_Scoped
{
public:
    /// Takes over the caller's reference to `object`, which may be null.
    explicit COM_Scoped(T* object)
        : mObject(object)
    {}
    ~COM_Scoped()
    {
        if (mObject != nullptr) {
            mObject->Delete();
        }
    }
    COM_Scoped(const COM_Scoped&) = delete;
    COM_Scoped& operator=(const COM_Scoped&) = delete;

    T* get() const { return mObject; }
    T& operator*() const { return *mObject; }
    T* operator->() const { return mObject; }
    explicit operator bool() const { return mObject != nullptr; }

private:
    T* mObject; ///< Counted once, may be null.
};
