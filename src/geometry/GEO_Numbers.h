#pragma once
#include "common/COM_Object.h"

#include <array>
#include <unordered_map>

/// Objects by number, as a view: it keeps none alive, and who goes takes itself out.
///
/// The numbers of a mesh follow one another, so objects stand side by side in pages of neighbours: a
/// million of them take little more than their pointers, and the next one is found where the last was.
template <typename T>
class GEO_Numbers : public COM_Object
{
    COM_CLASS(GEO_Numbers)
public:
    /// The object, or null.
    T* get(unsigned long number) const
    {
        const Page* const page = find(number / PAGE_SIZE);
        return page != nullptr ? page->mObjects[number % PAGE_SIZE] : nullptr;
    }
    /// Takes the number for `object`, also from another one.
    void put(unsigned long number, T& object)
    {
        Page* page = find(number / PAGE_SIZE);
        if (page == nullptr) {
            page = &mPages[number / PAGE_SIZE];
            remember(number / PAGE_SIZE, page);
        }
        T*& slot = page->mObjects[number % PAGE_SIZE];
        page->mCount += slot == nullptr ? 1 : 0;
        slot = &object;
    }
    /// Does nothing for a number that is free.
    void remove(unsigned long number)
    {
        Page* const page = find(number / PAGE_SIZE);
        if (page == nullptr || page->mObjects[number % PAGE_SIZE] == nullptr) {
            return;
        }
        page->mObjects[number % PAGE_SIZE] = nullptr;
        if (--page->mCount == 0) {
            mPages.erase(number / PAGE_SIZE);
            remember(0, nullptr);
        }
    }

protected:
    GEO_Numbers() { COM_TYPE(GEO_Numbers); }
    ~GEO_Numbers() override = default;

private:
    static constexpr unsigned long PAGE_SIZE = 64; ///< Small, for numbers that lie far apart.

    struct Page
    {
        std::array<T*, PAGE_SIZE> mObjects{};
        unsigned long mCount = 0; ///< Those that are not null.
    };

    Page* find(unsigned long index) const
    {
        if (mLast == nullptr || mLastIndex != index) {
            const auto page = mPages.find(index);
            if (page == mPages.end()) {
                return nullptr;
            }
            remember(index, &page->second);
        }
        return mLast;
    }
    void remember(unsigned long index, Page* page) const
    {
        mLastIndex = index;
        mLast = page;
    }

    mutable std::unordered_map<unsigned long, Page> mPages; ///< None is empty.
    mutable unsigned long mLastIndex = 0;
    mutable Page* mLast = nullptr; ///< The page used last, inside `mPages`; null when it is gone.
};
