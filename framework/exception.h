// The exceptions that the framework throws inside itself; none of them leaves a window procedure.
#pragma once

#include <exception>

class CException : public std::exception {};

// The user has already been told; whoever catches it only stops.
class CUserException : public CException {
public:
    const char* what() const noexcept override { return "user exception"; }
};

// An operation on something that does not offer it, such as a data exchange with a control that the dialog lacks.
class CNotSupportedException : public CException {
public:
    const char* what() const noexcept override { return "not supported"; }
};

[[noreturn]] void AfxThrowUserException();
[[noreturn]] void AfxThrowNotSupportedException();
