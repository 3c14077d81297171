// Templates as resources may hold them, and damaged ones.
#include "platform/dialog/dialog_template.h"
#include "tests/support/template_builder.h"

#include <gtest/gtest.h>

using platform::parseDialogTemplate;

namespace {

class DialogTemplateForms : public testing::TestWithParam<TemplateBuilder::Form> {
protected:
    static std::vector<std::byte> bytesOf(const TemplateBuilder& builder, std::size_t count) {
        const auto* first = reinterpret_cast<const std::byte*>(builder.words().data());
        return {first, first + count};
    }

    TemplateBuilder builder() const {
        TemplateBuilder made(GetParam(), WS_POPUP | WS_CAPTION, 200, 100, "Rubrik \xE5", WS_EX_TOPMOST, -3, 7);
        made.add(0x81, 101, "text", WS_TABSTOP, 1, 2, 30, 40).add("SysTabControl32", 0x3020, "", 0);
        return made;
    }
};

INSTANTIATE_TEST_SUITE_P(Forms, DialogTemplateForms,
                         testing::Values(TemplateBuilder::Form::Classic, TemplateBuilder::Form::Extended));

TEST_P(DialogTemplateForms, RefusesEveryTruncation) {
    const TemplateBuilder source = builder();
    for (std::size_t count = 0; count < source.words().size() * 2; ++count) {
        EXPECT_FALSE(parseDialogTemplate(bytesOf(source, count))) << count << " bytes";
    }
}

}  // namespace
