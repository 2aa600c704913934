#include "app/BuiltInTexts.h"

namespace quorvin {

const char* guideText()
{
    return R"guida(GUIDA DI QUORVIN

Quorvin apre un file di dati di EpiData (.REC), ne mostra i rekord e cerca
quelli voluti. Le voci con la spunta si accendono e si spengono con un clic;
il titolo di un menu in maiuscolo indica una modalità attiva. Le voci in
grigio non sono disponibili in quel momento o in questa versione.

MENU "File"
"apri file": sceglie e apre il file di dati (.REC).
"imposta stampante": sceglie la stampante (o un file PDF) per le stampe che
  seguono e le sue impostazioni.
"font dei caratteri": sceglie carattere, grandezza e stile della stampa.
"margine stampa": spazi a sinistra di ogni riga (0 non cambia nulla).
"preferenze file": apre e chiude il riquadro delle preferenze. "colori file
  originali" usa i colori del file; "visualizza ultimi due campi di ricerca"
  aggiunge all'elenco il valore del penultimo campo evidenziato.
"pref. griglie/tabelle" ("sort", "campo fisso X", "campo fisso Y", "adatta
  colonne"): preferenze delle griglie (in grigio).
"imposta maiuscolo": legge i rekord in maiuscolo; il file non cambia.
"stampa colore": stampa a colori; senza spunta, in bianco e nero.
"compatibilità EpiData": si spunta da sola se nessun campo supera gli 80
  caratteri; nei nuovi file .REC i campi sono tagliati a 80 (senza: a 250).
"esci": chiude subito il programma, senza domande.

MENU "Cerca rekord"
Premere "cancella" per vuotare le caselle, fare clic su uno o più campi
(diventano viola), scrivere i testi e premere Invio. Un rekord è trovato se
corrispondono tutti i campi evidenziati; maiuscole e minuscole non contano.
"elenco rekord": mette i rekord trovati in un elenco; un clic su una riga
  mostra il rekord e ne copia il numero negli appunti. Senza spunta la
  ricerca si ferma a ogni rekord trovato e chiede "continuo?".
"elimina puntegg.": ignora gli spazi e i segni . , - ; : _ ' (non la barra
  /); vale per i primi cinque degli otto modi di ricerca, che sono:
"ricerca       abcdef": uguale; ROSSI trova ROSSI, non ROSSI MARIO.
"ricerca       abcdef*": comincia con il testo; ROS trova ROSSI.
"ricerca     *abcdef": finisce con il testo; SSI trova ROSSI.
"ricerca     *abcdef*": contiene il testo; OSS trova ROSSI (modo iniziale).
"ricerca  <>abcdef": diverso dal testo; ROSSI trova VERDI e BIANCHI.
"ricerca (abc..)(abc..)": tutte le parole; MARIO ROSSI trova ROSSI MARIO.
  Il segno + unisce più parole, ma solo all'inizio: ROSSI+MARIO VERDI.
"ricerca (abc..) e/o (abc..)": almeno una parola; MARIO ROSSI trova anche
  MARIO BIANCHI. Il segno + unisce più parole in qualsiasi posizione.
"ricerca >(Val) e/o <(Val)": numeri (con il punto decimale) o date, estremi
  esclusi; >5 <10 trova 7, >01/01/2004 trova 15/06/2004.
"ricerca totale": cerca dal primo all'ultimo rekord.
"ricerca parziale": cerca fra i due numeri di rekord scritti nel riquadro.

MENU "Stampa"
"stampa rekord": prepara la stampa dei rekord fra "da rekord:" e "a rekord:"
  (Invio nella seconda casella), con i campi della matrice.
"stampa ricerca": prepara la stampa dei rekord che troverà la ricerca. Il
  tasto "stampa" invia ciò che è in mostra: testo, documento, grafico. Il
  testo si può correggere prima; Esc chiude il riquadro a modalità spenta.
"imposta matrice": clic sui campi da stampare, nell'ordine voluto (diventano
  verdi); un nuovo clic sulla voce salva la matrice su disco, accanto al
  file .REC. Senza alcun clic resta la matrice di prima.

MENU "Opzioni"
"ordine alfabetico ricerca": ordina l'elenco (richiede "elenco rekord").
"unisci campi rekord":
'unisci campi record' unisce alcuni campi evidenziati e ricerca come unico campo.
  I campi scelti sono rossi; il testo va in una casella, in tutte per la
  ricerca di valori uguali.
"max elenco": allarga l'elenco dei rekord trovati.
"no rek.canc. EpiData": salta i rekord cancellati in EpiData (in basso a
  destra c'è una X). Su un rekord cancellato il tasto "cancella" è giallo.
"intestazione": titolo (fino a 78 caratteri; cominci con una lettera).
"risol.video vert.: 600": adatta la finestra a schermi alti 600 punti.
"documento": un clic nell'elenco riempie il documento con quel rekord.
"imposta documento": si scrive il testo; clic su un campo ne inserisce il
  segno (non all'inizio del testo). Uscendo chiede se salvare.

MENU "Statistica"
Si conta nei rekord trovati: scelta la voce, clic sui campi e Invio in uno.
'frequenza' viene creata una tabella sull'ultimo campo selezionato.
'tabella' viene creata una tabella sull'ultimo e penultimo campo selezionato.
I rekord in cui l'ultimo campo scelto è vuoto non sono contati. Un clic sul
  titolo di una colonna (o Ctrl+Invio) ordina le righe; Ctrl+C le copia.
"date mese/anno asse y": raggruppa per mese e anno le date delle righe.
"vis. somma campi num.": mostra anche la somma dei valori numerici.
"Imposta Grafico":
'imposta grafico' imposta e mostra il grafico secondo i campi selezionati.
  Chiede il titolo; + e - allargano e stringono il grafico; "stampa" lo
  stampa e lo salva come "chart.jpg" accanto al file .REC.
In grigio: "Somma campi analoghi", "ricerca", "Griglia rekord campi
  analoghi", "Utilizza Excel".

MENU "Esporta/Importa"
Scelta la voce, la ricerca chiede un nome e scrive i rekord trovati in un
nuovo file, mai in quello aperto. Con Annulla la ricerca non scrive nulla.
"crea .REC - matrice": con i campi della matrice di stampa.
"crea .REC - ricerca-sel.": con i campi evidenziati per la ricerca.
"crea .REC - ricerca-tutto": con tutti i campi.
In grigio: "sostituisci campo", "cancella rekord", "Importa Excel / Access".

MENU "EpiData": apre il file in EpiData (numero del rekord negli appunti).
MENU "?": "guida", "limiti" e "versione" mostrano o nascondono i testi.

MOUSE: clic sinistro su un campo lo sceglie per la ricerca; tenendo premuta
una freccia si scorrono i rekord; i riquadri si spostano per il titolo.
Mouse tasto destro: click su 'freccia < >' o su 'rekord n.' o su 'elenco file cercati'
inserisce il numero di record negli appunti e richiama EpiData.
TASTIERA: Ctrl+O apre un file, Ctrl+P stampa, Ctrl+Q esce; Pag giù e Pag su vanno al rekord
seguente e precedente; Tab passa in ordine da un campo all'altro;
Ctrl+Spazio sceglie il campo come un clic; Invio in un campo avvia la
ricerca; nell'elenco le frecce mostrano i rekord e Ctrl+C copia le righe;
Esc ferma una ricerca lunga o chiude un riquadro.
CAMPI VUOTI: scrivere un solo spazio e premere Invio; il modo abcdef trova i
campi vuoti, abcdef* e *abcdef ogni rekord, gli altri modi i campi pieni.
LIMITI: 200 campi, 50 parole da cercare, 32K di stampa, griglie di 800 X
200; per EpiData niente spazi nei nomi di file e cartelle.
Il tasto "guida completa", qui sotto, apre la guida estesa: "guida.html".)guida";
}

}  // namespace quorvin
