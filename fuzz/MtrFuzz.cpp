/// Input: a .mtr file. Reading it raises nothing, and what is written of it reads as the same again.
#include "fuzz/FuzzTarget.h"
#include "output/DocumentTemplate.h"
#include "output/PrintMatrix.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace quorvin;
    using fuzz::require;
    PrintMatrix matrix, again;
    matrix.fromText(fuzz::bytesOf(data, size));
    again.fromText(matrix.toText());
    require(again.entries.numbers() == matrix.entries.numbers(), "the same entries");
    // A full list of entries loses what is behind it.
    if (matrix.PrintMatrixCount() == kMaxFields) return 0;
    require(again.PrintHeader == matrix.PrintHeader, "the same header");
    require(again.PrintMargin == matrix.PrintMargin, "the same margin");
    require(again.DocumentTemplate.find('"') == std::string::npos, "no quotes within quotes");
    if (matrix.DocumentTemplate.find('"') == std::string::npos) {
        require(again.DocumentTemplate == matrix.DocumentTemplate, "the same template");
    } else {
        require(DocumentTemplate(again.DocumentTemplate).Textserb ==
                    DocumentTemplate(matrix.DocumentTemplate).Textserb,
                "the same document");
    }
    require(again.toText() == matrix.toText(), "the same file once more");
    return 0;
}
