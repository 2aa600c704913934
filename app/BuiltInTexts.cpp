#include "app/BuiltInTexts.h"

namespace quorvin {

const char* limitsText()
{
    return " Limiti del programma:\n"
           "\n"
           "numero massimo di variabili nel record: 200\n"
           "numero massimo di parole da ricercare :  50\n"
           "massima lunghezza del file di stampa  : 32K\n"
           "massima dimensione griglie      :800 X 200   \n"
           "ricerca sequenziale non indicizzata.\n"
           "\n"
           "ATTENZIONE!!  \n"
           "Per richiamare il file (.REC) con EpiData è\n"
           "necessario che non vi siano spazi nel nome\n"
           "delle cartelle e nel nome del file (.REC)  ";
}

const char* versionText()
{
    return "Quorvin\n"
           "versione " QUORVIN_VERSION "\n"
           "\n"
           "ricerca, stampa e statistica sui file di EpiData\n"
           "licenza MIT";
}

}  // namespace quorvin
