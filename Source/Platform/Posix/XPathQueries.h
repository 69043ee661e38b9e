#pragma once

#include <libxml/xpath.h>

#include <memory>
#include <string>

namespace Platform {

struct CompiledQueryDeleter {
    void operator()(xmlXPathCompExpr* query) const { xmlXPathFreeCompExpr(query); }
};
using CompiledQuery = std::unique_ptr<xmlXPathCompExpr, CompiledQueryDeleter>;

// A compiled query, lent from the process's store for one evaluation: evaluating writes into the compiled
// form, so no two threads may use the same one at a time. Each text is compiled once, and once more for every
// further thread that asks for it while all of its forms are lent.
class LentQuery {
public:
    // Get() is null for a query that doesn't compile.
    explicit LentQuery(std::string text);
    ~LentQuery();
    LentQuery(const LentQuery&) = delete;
    LentQuery& operator=(const LentQuery&) = delete;

    xmlXPathCompExpr* Get() const { return query_.get(); }

private:
    std::string text_;
    CompiledQuery query_;
};

}  // namespace Platform
