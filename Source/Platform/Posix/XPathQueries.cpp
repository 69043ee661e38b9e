#include "XPathQueries.h"

#include <mutex>
#include <new>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Platform {
namespace {

// A host may ask for any number of different queries; beyond this many they are not kept.
constexpr std::size_t mostKeptTexts = 4096;

struct QueryStore {
    std::mutex Lock;
    std::unordered_map<std::string, std::vector<CompiledQuery>> Free;
};

QueryStore& Store() {
    static QueryStore store;
    return store;
}

}  // namespace

LentQuery::LentQuery(std::string text) : text_(std::move(text)) {
    {
        QueryStore& store = Store();
        const std::lock_guard guard(store.Lock);
        const auto found = store.Free.find(text_);
        if (found != store.Free.end() && !found->second.empty()) {
            query_ = std::move(found->second.back());
            found->second.pop_back();
            return;
        }
    }
    query_.reset(xmlXPathCompile(reinterpret_cast<const xmlChar*>(text_.c_str())));
}

LentQuery::~LentQuery() {
    if (!query_) return;
    QueryStore& store = Store();
    const std::lock_guard guard(store.Lock);
    try {
        if (store.Free.size() < mostKeptTexts || store.Free.contains(text_))
            store.Free[text_].push_back(std::move(query_));
    } catch (const std::bad_alloc&) {
        // Without room to keep it the query is freed here and compiled again next time.
    }
}

}  // namespace Platform
