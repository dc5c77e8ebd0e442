// The field reader that every data and list file goes through.

#include "app/field_reader.h"

#include "platform/fault.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qdw8 {
namespace {

std::vector<std::string> FieldsOf(const std::string& text) {
    FieldReader reader(text);
    std::vector<std::string> fields;
    while (!reader.atEnd()) {
        fields.push_back(reader.next());
    }
    return fields;
}

TEST(FieldReader, CutsTheText) {
    using Fields = std::vector<std::string>;
    struct Case {
        std::string text;
        Fields fields;
    };
    for (const Case& c : std::vector<Case>{
             {"", {}},
             {"a", {"a"}},
             {"a,b", {"a", "b"}},
             {"a,b\r\nc,d\r\n", {"a", "b", "c", "d"}},
             {"a\nb\rc\r\nd", {"a", "b", "c", "d"}},
             {"a,,b", {"a", "", "b"}},
             {"a\n\nb", {"a", "", "b"}},
             {"a\n\rb", {"a", "", "b"}},
             {",", {""}},
             {"\"\",\"\"\n", {"", ""}},
             {"  a , b ", {"a ", "b "}},
             {"\" 44L-100\",2", {" 44L-100", "2"}},
             {"  \" 30\"", {" 30"}},
             {"\"a,b\",c", {"a,b", "c"}},
             {"\"a\r\nb\",c", {"a\r\nb", "c"}},
             {"\"a\"dropped,b", {"a", "b"}},
             {"\"a\"dropped\nb", {"a", "b"}},
             {"a\"b\",c", {"a\"b\"", "c"}},
             {"\"it said \"no\" twice\",b", {"it said ", "b"}},
             {"a\tb,\tc", {"a\tb", "\tc"}},
             {std::string("a\0b,c", 5), {std::string("a\0b", 3), "c"}},
         }) {
        EXPECT_EQ(FieldsOf(c.text), c.fields) << c.text;
    }
}

TEST(FieldReader, TheEndIsAFault) {
    FieldReader reader("1\r\n");
    EXPECT_EQ(reader.next(), "1");
    EXPECT_TRUE(reader.atEnd());
    EXPECT_THROW(reader.next(), Fault);
}

TEST(FieldReader, AQuoteThatNeverClosesIsAFaultAndTheEnd) {
    FieldReader reader("\"abc,1\r\n2\r\n");
    EXPECT_THROW(reader.next(), Fault);
    EXPECT_TRUE(reader.atEnd());
}

} // namespace
} // namespace qdw8
