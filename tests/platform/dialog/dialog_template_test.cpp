// Templates as resources may hold them, and damaged ones.
#include "platform/dialog/dialog_template.h"
#include "tests/conformance/template_builder.h"

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

TEST_P(DialogTemplateForms, ReadsHeaderAndItems) {
    const TemplateBuilder source = builder();
    const std::vector<std::byte> bytes = bytesOf(source, source.words().size() * 2);
    const auto dialog = parseDialogTemplate(bytes);
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->caption, "Rubrik \xE5");
    EXPECT_EQ(dialog->exStyle, static_cast<DWORD>(WS_EX_TOPMOST));
    EXPECT_EQ(dialog->x, -3);
    EXPECT_EQ(dialog->height, 100);
    EXPECT_EQ(dialog->pointSize, 8);
    ASSERT_EQ(dialog->items.size(), 2U);
    EXPECT_EQ(dialog->items[0].className.text, "Edit");
    EXPECT_EQ(dialog->items[0].text.text, "text");
    EXPECT_EQ(dialog->items[0].width, 30);
    EXPECT_EQ(dialog->items[1].className.text, "SysTabControl32");
    EXPECT_EQ(dialog->items[1].id, 0x3020U);
}

TEST_P(DialogTemplateForms, RefusesEveryTruncation) {
    const TemplateBuilder source = builder();
    for (std::size_t count = 0; count < source.words().size() * 2; ++count) {
        EXPECT_FALSE(parseDialogTemplate(bytesOf(source, count))) << count << " bytes";
    }
}

TEST_P(DialogTemplateForms, RefusesUnknownClassNumber) {
    TemplateBuilder source = builder();
    source.add(0x86, 5, "", 0);
    EXPECT_FALSE(parseDialogTemplate(bytesOf(source, source.words().size() * 2)));
}

}  // namespace
