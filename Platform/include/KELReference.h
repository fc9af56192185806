#ifndef KELReference_H
#define KELReference_H

#include <utility>

/// Holds one reference on a counted object (`AddRef`, `Release`) for as long as it lives, or none.
///
/// A new reference is always taken before the old one is given up, so that assigning what is already held, or what only
/// the old object keeps alive, is safe. A holder is as thread-safe as a plain pointer; the counts themselves are the
/// object's matter.
template <class T>
class KELReference {
public:
    KELReference() noexcept = default;

    /// Takes a reference of its own on iObject, which may be null.
    explicit KELReference(T* iObject) : m_object(iObject)
    {
        if (m_object) {
            m_object->AddRef();
        }
    }

    /// Hold what the other holds, or another object, with a reference of their own; moving hands the reference over.
    /// @{
    KELReference(const KELReference& iOther) : KELReference(iOther.m_object) {}
    KELReference(KELReference&& ioOther) noexcept : m_object(std::exchange(ioOther.m_object, nullptr)) {}

    KELReference& operator=(KELReference iOther) noexcept
    {
        Swap(iOther);
        return *this;
    }

    KELReference& operator=(T* iObject)
    {
        KELReference(iObject).Swap(*this);
        return *this;
    }
    /// @}

    ~KELReference()
    {
        if (T* object = std::exchange(m_object, nullptr)) {
            object->Release();
        }
    }

    /// Takes over a reference that the caller already has, such as one that a getter added for it.
    static KELReference Adopt(T* iObject) noexcept
    {
        KELReference reference;
        reference.m_object = iObject;
        return reference;
    }

    /// Gives the reference to the caller.
    T* Detach() noexcept { return std::exchange(m_object, nullptr); }

    /// The object, without a reference for the caller.
    T* Get() const noexcept { return m_object; }

    /// The object with a reference added for the caller, who gives it back with `Release`.
    T* Share() const
    {
        T* const object = m_object; // what counts may be a caller's, and may change this holder
        if (object) {
            object->AddRef();
        }
        return object;
    }

    /// Behave as the plain pointer does.
    /// @{
    T* operator->() const noexcept { return m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    friend bool operator==(const KELReference& iHolder, const T* iObject) noexcept
    {
        return iHolder.m_object == iObject;
    }
    /// @}

private:
    void Swap(KELReference& ioOther) noexcept { std::swap(m_object, ioOther.m_object); }

    T* m_object = nullptr;
};

#endif
