#include "check/report.h"

#include <fmt/format.h>

#include "base/json.h"
#include "check/checked_form.h"

namespace velform {
namespace {

// Calls with each file and finding; separates the results by commas.
template <typename Words>
std::string list_of_all(const std::vector<CheckedFile> &files, const Words &words) {
    std::string list;
    for (const CheckedFile &file : files) {
        for (const Finding &finding : file.findings) {
            list += (list.empty() ? "\n" : ",\n") + words(file, finding);
        }
    }
    return list + (list.empty() ? "" : "\n");
}

// As in "record 12, field master"; empty for the file as a whole.
std::string record_words(Position where) {
    const std::string place = place_in_record(where);
    return place.empty() ? place : place.substr(2);
}

std::string json_place(const CheckedFile &file, Position where) {
    if (file.is_source)
        return fmt::format("\"line\": {}, \"column\": {}", where.line, where.column);
    return fmt::format("\"record\": {}, \"place\": {}", where.line,
                       json_string(record_words(where)));
}

std::string sarif_location(const CheckedFile &file, Position where) {
    const std::string artifact =
        fmt::format("\"artifactLocation\": {{\"uri\": {}}}", json_string(file.path));
    if (file.is_source) {
        return fmt::format("\"physicalLocation\": {{{}, \"region\": {{\"startLine\": {}, "
                           "\"startColumn\": {}}}}}",
                           artifact, where.line, where.column);
    }
    const std::string place = record_words(where);
    const std::string logical =
        place.empty() ? ""
                      : fmt::format(", \"logicalLocations\": [{{\"fullyQualifiedName\": {}}}]",
                                    json_string(place));
    return fmt::format("\"physicalLocation\": {{{}}}{}", artifact, logical);
}

std::string sarif_rules() {
    std::string rules;
    for (const RuleRow &row : all_rules()) {
        rules += fmt::format("{}\n        {{\"id\": {}, \"shortDescription\": {{\"text\": {}}}, "
                             "\"defaultConfiguration\": {{\"level\": {}}}}}",
                             rules.empty() ? "" : ",", json_string(row.name),
                             json_string(row.summary), json_string(word_for(row.severity)));
    }
    return rules;
}

} // namespace

void print_json(const std::vector<CheckedFile> &files, std::ostream &out) {
    out << '[' << list_of_all(files, [](const CheckedFile &file, const Finding &finding) {
        return fmt::format(
            "  {{\"file\": {}, {}, \"severity\": {}, \"rule\": {}, \"message\": {}}}",
            json_string(file.path), json_place(file, finding.where),
            json_string(word_for(severity_of(finding))), json_string(row_of(finding.rule).name),
            json_string(finding.message));
    }) << "]\n";
}

void print_sarif(const std::vector<CheckedFile> &files, std::ostream &out) {
    const auto result = [](const CheckedFile &file, const Finding &finding) {
        return fmt::format("      {{\"ruleId\": {}, \"level\": {}, \"message\": {{\"text\": {}}}, "
                           "\"locations\": [{{{}}}]}}",
                           json_string(row_of(finding.rule).name),
                           json_string(word_for(severity_of(finding))),
                           json_string(finding.message), sarif_location(file, finding.where));
    };
    out << fmt::format("{{\n  \"version\": \"2.1.0\",\n"
                       "  \"runs\": [{{\n"
                       "    \"tool\": {{\"driver\": {{\n      \"name\": \"velform\",\n"
                       "      \"rules\": [{}\n      ]\n    }}}},\n"
                       "    \"results\": [{}    ]\n  }}]\n}}\n",
                       sarif_rules(), list_of_all(files, result));
}

} // namespace velform
