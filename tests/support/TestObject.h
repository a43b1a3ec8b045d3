#pragma once
#include "common/COM_Object.h"

#include <functional>
#include <string>

/// An object that says how many of its kind are alive, and whose protected side is open to tests.
class TestObject : public COM_Object
{
    COM_CLASS(TestObject)
public:
    static int getLivingNumber() { return mLivingNumber; }

    /// The type name in front of the "@" of every identity string.
    static constexpr const char* CLASS_NAME = "10TestObject";

    std::string toString() const override { return mText.empty() ? COM_Object::toString() : mText; }
    /// What is called at the end of the object's life.
    void setFarewell(const std::function<void()>& farewell) { mFarewell = farewell; }
    void addType(const std::string& type) { setType(type); }
    /// Runs the destructor whatever the count is.
    void destroyAnyhow() { delete this; }

protected:
    explicit TestObject(const std::string& text = {})
        : mText(text)
    {
        COM_TYPE(TestObject);
        ++mLivingNumber;
    }
    ~TestObject() override
    {
        --mLivingNumber;
        if (mFarewell) {
            mFarewell();
        }
    }

private:
    static inline int mLivingNumber = 0;

    std::function<void()> mFarewell;
    std::string mText; ///< What `toString` gives; empty for the identity.
};
