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

/// Pairs of description and pattern, separated by bars.
inline constexpr char kOpenFilter[] =
    " File dati EpiData (*.rec) |*.rec|File dati Testo (*.txt) |*.txt|File dati Tutti (*.*) |*.*";

inline constexpr char kInvitation[] = "   Apri file REC !! ";

inline constexpr char kGuideFrame[] = "GUIDA";
inline constexpr char kLimitsFrame[] = "limiti";
inline constexpr char kVersionFrame[] = "versione";
inline constexpr char kPreferencesFrame[] = "Preferenze file";

}  // namespace quorvin::messages
