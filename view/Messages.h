/// Captions and messages of the window, byte for byte (blanks and punctuation too). Source text is UTF-8.
#pragma once

namespace quorvin::messages {

inline constexpr char kProgram[] = "Quorvin";

/// Prefixes of the boxes for errors; the error's description follows directly.
inline constexpr char kError[] = "Errore!! ";
inline constexpr char kFileError[] = "Errore file !! ";
inline constexpr char kHitError[] = "Errore troppi rekord trovati !! ";

/// Asked at each hit of a search that lists none.
inline constexpr char kContinue[] = "continuo?";

inline constexpr char kEmptyMatrix[] = " Attenzione !! Matrice di stampa vuota";

/// Prompts for header and margin of the print file, around what they are now.
inline constexpr char kHeaderPrompt[] = "Attuale : ";
inline constexpr char kMarginPrompt[] = "Attuale:";
inline constexpr char kMarginPromptEnd[] = ", inserire il nuovo margine sinistro di stampa";

inline constexpr char kFontTitle[] = "Imposta pagina";
inline constexpr char kNoPrinter[] = "Errore!! manca stampante !!";

/// About the file that a new REC file is to be written to; the question has the file's name within.
inline constexpr char kIsSource[] = "Errore!! non è possibile sostituire il file origine!! ";
inline constexpr char kOverwriteTitle[] = "Attenzione!!";
inline constexpr char kOverwrite[] = "il file ";
inline constexpr char kOverwriteEnd[] = " esiste già ...sovrascrivere il file esistente?";
inline constexpr char kNoFields[] = "Errore!! matrice vuota!! ";

/// A table that was cut short because an axis is full; what went wrong in the run, if anything did, comes
/// before it.
inline constexpr char kLimitY[] = "Interruzione !! tabella asse Y > 800 elementi !! ";
inline constexpr char kLimitX[] = "Interruzione !! tabella asse X > 200 elementi !! ";
inline constexpr char kChartTitle[] = "Titolo del Grafico:";

/// Pairs of description and pattern, separated by bars.
inline constexpr char kOpenFilter[] =
    " File dati EpiData (*.rec) |*.rec|File dati Testo (*.txt) |*.txt|File dati Tutti (*.*) |*.*";

inline constexpr char kInvitation[] = "   Apri file REC !! ";

inline constexpr char kDocumentFrame[] = "Documento";
inline constexpr char kSaveDocument[] = "Salvo le impostazioni del documento sul disco ?";

inline constexpr char kGuideFrame[] = "GUIDA";
inline constexpr char kFullGuide[] = "&guida completa";
/// What was looked for follows: a file, or its name and the two folders.
inline constexpr char kNoFullGuide[] = "Impossibile aprire la guida completa: ";
inline constexpr char kNotIn[] = " non si trova nelle cartelle\n";
inline constexpr char kLimitsFrame[] = "limiti";
inline constexpr char kVersionFrame[] = "versione";
inline constexpr char kPreferencesFrame[] = "Preferenze file";

}  // namespace quorvin::messages
