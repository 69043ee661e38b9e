#include "tables/RecordBuilding.h"

#include "Platform/ResultError.h"

namespace DeviceSpecificModule {

void AddPieces(WideText& text, std::initializer_list<std::u16string_view> pieces) {
    for (const std::u16string_view piece : pieces)
        if (!text.Append(piece)) Platform::ThrowResult(Platform::ResultOutOfMemory);
}

WideText JoinPieces(std::initializer_list<std::u16string_view> pieces) {
    WideText joined;
    AddPieces(joined, pieces);
    return WideText(joined.View());  // without the room for growing, which a table would keep for good
}

}  // namespace DeviceSpecificModule
