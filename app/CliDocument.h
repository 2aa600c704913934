/// The document that quorvin-cli fills.
#pragma once

namespace quorvin {

class RecFile;

enum class DocumentFormat { text, rtf };

/// Fills the document kept beside the file from the record read last, and prints it; false when there is
/// none. Raises CliError when it cannot be read, and for a marker that cannot be filled, after what was
/// filled so far has been printed.
bool printDocument(const RecFile& file, DocumentFormat format);

}  // namespace quorvin
