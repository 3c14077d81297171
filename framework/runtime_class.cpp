// The walk up the class records, and the throwing of the framework's exceptions.

#include "framework/runtime_class.h"

#include "framework/exception.h"

const CRuntimeClass CObject::classCObject = {"CObject", static_cast<int>(sizeof(CObject)), nullptr, nullptr};

const CRuntimeClass* CObject::GetRuntimeClass() const {
    return &classCObject;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* baseClass) const {
    const CRuntimeClass* at = this;
    while (at != nullptr && at != baseClass) {
        at = at->m_pBaseClass;
    }
    return at != nullptr;
}

BOOL CObject::IsKindOf(const CRuntimeClass* runtimeClass) const {
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}

void AfxThrowUserException() {
    throw CUserException();
}

void AfxThrowNotSupportedException() {
    throw CNotSupportedException();
}

void AfxThrowWindowGoneException() {
    throw CWindowGoneException();
}
