// Carries the compiled resources in the module that links this, and hands them to the window system when the
// module is loaded. Native only: a Windows module has its resources in a section of its own.
#include <tavrikdisplay.h>

asm(R"(
    .pushsection .rodata.tavrikresources, "a", @progbits
    .balign 4
    .globl tavrikResourcesBegin
    .globl tavrikResourcesEnd
    .hidden tavrikResourcesBegin
    .hidden tavrikResourcesEnd
tavrikResourcesBegin:
    .incbin ")" TAVRIK_RESOURCE_FILE R"("
tavrikResourcesEnd:
    .popsection
)");

extern "C" {
extern const unsigned char tavrikResourcesBegin[];
extern const unsigned char tavrikResourcesEnd[];
}

namespace {

const struct Registration {
    Registration() { TavrikRegisterResources(tavrikResourcesBegin, tavrikResourcesEnd); }
} registration;

}  // namespace
