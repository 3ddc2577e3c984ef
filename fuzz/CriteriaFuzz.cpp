#include "CriteriaFuzz.h"

#include <cstdlib>
#include <string>

#include "search/SearchCriterion.h"

namespace bw {

void zFuzzCriteriaInput(const uint8_t* data, size_t size) {
    const CriteriaFileResult r = zParseCriteria(std::string(reinterpret_cast<const char*>(data), size));
    if (!r.ok) {
        if (r.error.empty() || r.error.find('\n') != std::string::npos || !r.criteria.empty()) std::abort();
        return;
    }
    for (const auto& c : r.criteria) zCriterionTexts(c);
    const CriteriaFileResult again = zParseCriteria(zCriteriaToJson(r.criteria));
    if (!again.ok || !(again.criteria == r.criteria)) std::abort();
}

}  // namespace bw
