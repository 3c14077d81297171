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

// A window that the work needs is gone: the host has destroyed it. Nobody is told; the modal window under way ends as
// cancelled.
class CWindowGoneException : public CException {
public:
    const char* what() const noexcept override { return "window gone"; }
};

// What keeps the modal windows under way from being accepted.
enum class AfxFailure { None, WindowGone, OutOfMemory };

// Ends all modal windows of the framework that are running as if they were cancelled, whatever the user answers
// meanwhile. Of memory that ran out the user is told when the outermost of them ends.
void AfxFailModal(AfxFailure failure) noexcept;
// The same for a call of the system that has failed, if memory was the reason. The error is to be cleared before such a
// call.
void AfxFailModalOutOfMemory() noexcept;

[[noreturn]] void AfxThrowUserException();
[[noreturn]] void AfxThrowNotSupportedException();
[[noreturn]] void AfxThrowWindowGoneException();
