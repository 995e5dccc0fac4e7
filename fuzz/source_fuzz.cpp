// Compiles form sources of any bytes. What the form tool accepts, the loader takes as it is, and
// the standard layout of a source stays as it is.
#include <cstdlib>
#include <cstring>
#include <sstream>

#include "form/form_builder.h"
#include "form/form_check.h"
#include "form/header.h"
#include "form/records.h"
#include "model/form_check.h"
#include "source/source_layout.h"
#include "source/toml_text.h"
#include "world.h"

namespace {

using namespace velform;

fuzz::Bytes bytes_of(const std::string &string) {
    return {reinterpret_cast<const std::uint8_t *>(string.data()), string.size()};
}

void load(const std::string &form, const std::string &text) {
    using namespace velumo;
    fuzz::world().form = bytes_of(form);
    fuzz::world().text = bytes_of(text);
    Tables tables;
    RecordReader objects(fuzz::form_path, Access::read_only, sizeof(vel_object_file_rec));
    if (read_objects(objects, 0, tables) != FileError::none) std::abort();
    RecordReader texts(fuzz::text_path, Access::read_only, sizeof(vel_text_rec));
    if (read_texts(texts, 0, tables) != FileError::none) std::abort();
    const std::vector<vel_object> before(tables.objects.get(),
                                         tables.objects.get() + tables.object_records);
    remove_dangling_references(tables, fuzz::form_path);
    const std::size_t size = before.size() * sizeof(vel_object);
    if (std::memcmp(before.data(), tables.objects.get(), size) != 0) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Diagnostics diagnostics;
    const std::string text(reinterpret_cast<const char *>(data), size);
    if (const auto root = parse_toml(text, diagnostics)) {
        const FormSource source = read_form_source(*root, diagnostics);
        const Form form = build_form(source, diagnostics);
        check_form(form, diagnostics);
        HeaderNames names(header_text(form, "FUZZ", diagnostics));
        const std::string once = laid_out(text);
        if (laid_out(once) != once) std::abort();
        if (!diagnostics.has_errors()) load(form_file_bytes(form), text_file_bytes(form));
    }
    std::ostringstream printed;
    diagnostics.print(printed, {"fuzz.toml"});
    return 0;
}
