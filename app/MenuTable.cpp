#include "app/MenuTable.h"

#include <array>

namespace quorvin {

namespace {

using enum MenuKind;
using enum Availability;
using enum Tick;

constexpr MenuRow bar(std::string_view name, std::string_view caption, Availability availability,
                      char accessKey)
{
    return {name, caption, {}, menu, availability, none, {}, accessKey};
}

constexpr MenuRow line(std::string_view name, std::string_view parent)
{
    return {name, {}, parent, separator, always};
}

constexpr std::array kRows = {
    bar("indice", "  File", always, 'F'),
    MenuRow{"aprifile", "apri file", "indice", item, always, none, "Ctrl+O"},
    line("p1", "indice"),
    MenuRow{"impoststamp", "imposta stampante", "indice", item, withFile},
    MenuRow{"prefstamp", "font dei caratteri", "indice", item, withFile},
    MenuRow{"margstamp", "margine stampa", "indice", item, withFile},
    line("p2", "indice"),
    MenuRow{"preferenze", "preferenze file", "indice", item, withFile, off},
    MenuRow{"sortmenu", "pref. griglie/tabelle", "indice", menu, withFile},
    MenuRow{"sortgrid", "sort", "sortmenu"},
    MenuRow{"campx", "campo fisso X", "sortmenu"},
    MenuRow{"campy", "campo fisso Y", "sortmenu"},
    MenuRow{"adattaColonna", "adatta colonne", "sortmenu"},
    MenuRow{"impostMaiusc", "imposta maiuscolo", "indice", item, withFile, kept},
    MenuRow{"stampcol", "stampa colore", "indice", item, withFile, kept},
    MenuRow{"compEpidat", "compatibilità EpiData", "indice", item, withFile, kept},
    line("p3", "indice"),
    MenuRow{"esci", "esci", "indice", item, always, none, "Ctrl+Q"},

    bar("cercarekord", " Cerca rekord", withFile, 'C'),
    MenuRow{"elencorekord", "elenco rekord", "cercarekord", item, withFile, off},
    MenuRow{"eliminapuntegg", "elimina puntegg.", "cercarekord", item, withFile, off},
    line("p4", "cercarekord"),
    MenuRow{"ric(1)", "ricerca       abcdef", "cercarekord", item, withFile, off},
    MenuRow{"ric(2)", "ricerca       abcdef*", "cercarekord", item, withFile, off},
    MenuRow{"ric(3)", "ricerca     *abcdef", "cercarekord", item, withFile, off},
    MenuRow{"ric(4)", "ricerca     *abcdef*", "cercarekord", item, withFile, on},
    MenuRow{"ric(5)", "ricerca  <>abcdef", "cercarekord", item, withFile, off},
    MenuRow{"ric(6)", "ricerca (abc..)(abc..)", "cercarekord", item, withFile, off},
    MenuRow{"ric(7)", "ricerca (abc..) e/o (abc..)", "cercarekord", item, withFile, off},
    MenuRow{"ric(8)", "ricerca >(Val) e/o <(Val)", "cercarekord", item, withFile, off},
    line("p5", "cercarekord"),
    MenuRow{"rictot", "ricerca totale", "cercarekord", item, withFile, on},
    MenuRow{"ricparz", "ricerca parziale", "cercarekord", item, withFile, off},

    bar("stampa", " Stampa", withFile, 'S'),
    MenuRow{"stamp1", "stampa rekord", "stampa", item, withFile, off},
    MenuRow{"stamp2", "stampa ricerca", "stampa", item, withFile, off},
    line("p6", "stampa"),
    MenuRow{"impmat", "imposta matrice", "stampa", item, withFile, off},

    bar("opz", " Opzioni", withFile, 'O'),
    MenuRow{"sort", "ordine alfabetico ricerca", "opz", item, withFile, off},
    MenuRow{"unirek", "unisci campi rekord", "opz", item, withFile, off},
    MenuRow{"maxel", "max elenco", "opz", item, withFile, kept},
    MenuRow{"norec", "no rek.canc. EpiData", "opz", item, withFile, off},
    line("p7", "opz"),
    MenuRow{"intestazione", "intestazione", "opz", item, withFile},
    MenuRow{"adatta600", "risol.video vert.: 600", "opz", item, withFile, kept},
    line("p8", "opz"),
    MenuRow{"documento", "documento", "opz", item, withFile, off},
    MenuRow{"impostadoc", "imposta documento", "opz", item, withFile, off},

    bar("stat", "Statistica", withFile, 'T'),
    MenuRow{"freq", "Frequenza", "stat", item, withFile, off},
    MenuRow{"tabella", "Tabella", "stat", item, withFile, off},
    line("p9", "stat"),
    MenuRow{"accorpa", "date mese/anno asse y", "stat", item, inMode, off},
    MenuRow{"SommaCampNum", "vis. somma campi num.", "stat", item, inMode, off},
    MenuRow{"sommcamp", "Somma campi analoghi", "stat", item, never, off},
    MenuRow{"ric1", "ricerca", "stat", menu},
    MenuRow{"ric1(1)", "ricerca       abcdef", "ric1", item, never, off},
    MenuRow{"ric1(2)", "ricerca       abcdef*", "ric1", item, never, off},
    MenuRow{"ric1(3)", "ricerca     *abcdef", "ric1", item, never, off},
    MenuRow{"ric1(4)", "ricerca     *abcdef*", "ric1", item, never, off},
    MenuRow{"ric1(5)", "ricerca  <>abcdef", "ric1", item, never, off},
    MenuRow{"ric1(6)", "ricerca (abc..)(abc..)", "ric1", item, never, off},
    MenuRow{"ric1(7)", "ricerca (abc..) e/o (abc..)", "ric1", item, never, off},
    MenuRow{"ric1(8)", "ricerca >(Val) e/o <(Val)", "ric1", item, never, off},
    MenuRow{"grigliarek", "Griglia rekord campi analoghi", "stat", item, never, off},
    line("p10", "stat"),
    MenuRow{"MenExcel", "Utilizza Excel", "stat", item, never, off},
    MenuRow{"GrafImpost", "Imposta Grafico", "stat", item, inMode, off},

    bar("esporta", "Esporta/Importa", withFile, 'E'),
    MenuRow{"creamat1", "crea .REC - matrice", "esporta", item, withFile, off},
    MenuRow{"creamat2", "crea .REC - ricerca-sel.", "esporta", item, withFile, off},
    MenuRow{"creamatutto", "crea .REC - ricerca-tutto", "esporta", item, withFile, off},
    line("p11", "esporta"),
    MenuRow{"sostituisci", "sostituisci campo", "esporta", item, never, off},
    MenuRow{"cancellarec", "cancella rekord", "esporta", item, never, off},
    MenuRow{"Importa", "Importa Excel / Access", "esporta"},

    MenuRow{"EpiData", " EpiData", {}, item, withFile, none, {}, 'D'},

    bar("inf", " ?", always, '?'),
    MenuRow{"note", "guida", "inf", item, always, kept, "F1"},
    MenuRow{"limiti", "limiti", "inf", item, always, kept},
    MenuRow{"versione", "versione", "inf", item, always, kept},
};

}  // namespace

std::span<const MenuRow> menuTable()
{
    return kRows;
}

}  // namespace quorvin
