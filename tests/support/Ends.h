#pragma once
#include <QObject>

#include <string>
#include <vector>

/// Writes down in which order objects end. It outlives those that it watches.
class Ends
{
public:
    Ends() = default;
    Ends(const Ends&) = delete;
    Ends& operator=(const Ends&) = delete;

    void watch(const QObject& object, const std::string& name)
    {
        QObject::connect(&object, &QObject::destroyed, [this, name] { mNames.push_back(name); });
    }
    /// Of those that have ended, the first one first.
    const std::vector<std::string>& names() const { return mNames; }

private:
    std::vector<std::string> mNames;
};
