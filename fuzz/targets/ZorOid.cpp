// Oid texts come from request lines, unit files and the command line: parse any text, and
// the text forms of what parsed must parse back to the same oid.
#include <string>

#include "FuzzSupport.h"
#include "Targets.h"
#include "Zor/Oid.h"

namespace Fuzz {

int ZorOid(const uint8_t* data, size_t size)
{
    using Zor::COid;
    const std::string text(reinterpret_cast<const char*>(data), size);
    const COid oid(text);

    COid parsed;
    const bool ok = parsed.Str2Oid(text.c_str(), true);
    FUZZ_CHECK(ok == !oid.IsEmpty() && parsed == oid, text);

    // Appending keeps what was there; a failed append changes nothing.
    COid appended("7.7");
    const bool appendOk = appended.Str2Oid(text.c_str(), false);
    FUZZ_CHECK(appendOk == ok, text);
    FUZZ_CHECK(appended == (ok ? COid("7.7") + oid : COid("7.7")), text);

    if (!ok) {
        FUZZ_CHECK(oid.OidStr().empty() && oid.Length() == 0, text);
        return 0;
    }
    const std::string form = oid.OidStr();
    FUZZ_CHECK(!form.empty() && form[0] == '.', form);
    FUZZ_CHECK(COid(form) == oid && COid(form.substr(1)) == oid, text + " -> " + form);
    // The text from the first dot on is the same oid with or without it.
    if (text[0] != '.') {
        FUZZ_CHECK(COid("." + text) == oid, text);
    }

    const unsigned length = oid.Length();
    for (unsigned i = 0; i < length; ++i) {
        FUZZ_CHECK(oid.GetDigitL(i) == oid.GetDigitR(length - 1 - i), text);
    }
    // Heads of a few lengths (all of them would make long oids quadratic).
    for (unsigned n : {1u, 2u, 3u, length / 2, length - 1}) {
        if (n == 0 || n > length) {
            continue;
        }
        const COid head(oid.OidSubStrL(n));
        FUZZ_CHECK(head.Length() == n && head.GetDigitR(0) == oid.GetDigitL(n - 1), text);
    }
    FUZZ_CHECK(oid.GetDigitL(length) == 0 && oid.GetDigitR(length) == 0, text);
    FUZZ_CHECK(oid.OidSubStrL(length + 1) == form, text);
    FUZZ_CHECK(oid + -1 == oid && (oid + 0).Length() == length + 1, text);
    FUZZ_CHECK(!(oid < oid) && oid < oid + 0, text);
    return 0;
}

}  // namespace Fuzz
