// Run-time class records: every framework class knows its name, its base and, when it can be made dynamically, how.
// Deliberately missing: serialization and the list of all classes.
#pragma once

#include "framework/window_api.h"

class CObject;

struct CRuntimeClass {
    LPCSTR m_lpszClassName;
    int m_nObjectSize;
    // Null for a class that cannot be created dynamically.
    CObject* (*m_pfnCreateObject)();
    // Null for CObject.
    const CRuntimeClass* m_pBaseClass;

    // A new object owned by the caller, or null when the class is not creatable.
    CObject* CreateObject() const { return m_pfnCreateObject != nullptr ? m_pfnCreateObject() : nullptr; }
    BOOL IsDerivedFrom(const CRuntimeClass* baseClass) const;
};

class CObject {
public:
    static const CRuntimeClass classCObject;

    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    virtual const CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject() = default;

    BOOL IsKindOf(const CRuntimeClass* runtimeClass) const;

protected:
    CObject() = default;
};

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define DECLARE_DYNAMIC(class_name)               \
public:                                           \
    static const CRuntimeClass class##class_name; \
    const CRuntimeClass* GetRuntimeClass() const override;

#define AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, create)                                             \
    const CRuntimeClass class_name::class##class_name = {#class_name, static_cast<int>(sizeof(class_name)), create, \
                                                         RUNTIME_CLASS(base_class_name)};                           \
    const CRuntimeClass* class_name::GetRuntimeClass() const {                                                      \
        return RUNTIME_CLASS(class_name);                                                                           \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, nullptr)

#define DECLARE_DYNCREATE(class_name) \
    DECLARE_DYNAMIC(class_name)       \
    static CObject* CreateObject();

#define IMPLEMENT_DYNCREATE(class_name, base_class_name) \
    CObject* class_name::CreateObject() {                \
        using ThisClass = class_name;                    \
        return new ThisClass;                            \
    }                                                    \
    AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, &class_name::CreateObject)

// The object when it is of the class, else null.
template <typename Class>
Class* AfxDynamicDownCast(const CRuntimeClass* runtimeClass, CObject* object) {
    return object != nullptr && object->IsKindOf(runtimeClass) ? static_cast<Class*>(object) : nullptr;
}
#define DYNAMIC_DOWNCAST(class_name, object) AfxDynamicDownCast<class_name>(RUNTIME_CLASS(class_name), object)
