# What each picture of the guide shows, a function a picture; read by pictures.sh. Menu items are named by their
# menu's key and their place in it (see menu in driving.sh).

scenes="finestra apri_file sfoglia menu_cerca trova continuo due_campi date ordinato unisci vuoti cancellato
    matrice stampa_ricerca stampa_rekord stampante modello lettera frequenza tabella grafico nuovo_file
    scritto epidata guida"

# The window with a list of hits, its parts numbered.
scene_finestra() {
    start pazienti.rec
    menu c 0
    choose 6 roma
    keys Return
    keys Down
    labels="600,28 312,54 690,150 760,480 640,755"
}

scene_apri_file() {
    start
    keys ctrl+o
    await_window "apri file"
    part=1024x600+0+0
}

scene_sfoglia() {
    start pazienti.rec
    go_to 7
    keys Page_Down
    part=1024x300+0+0
}

scene_menu_cerca() {
    start pazienti.rec
    show_menu c
    part=640x330+0+0
}

scene_trova() {
    start pazienti.rec
    menu c 0
    choose 1 rossi
    choose 2 mar
    keys Return
    keys Down
}

scene_continuo() {
    start pazienti.rec
    choose 1 "lo presti"
    keys Return
    await_window Quorvin
    part=1024x620+0+0
}

# A town and an age, mode 8.
scene_due_campi() {
    start pazienti.rec
    menu c 0
    menu c 9
    choose 6 roma
    choose 5 ">65"
    keys Return
    keys Down
}

scene_date() {
    start pazienti.rec
    menu c 0
    menu c 9
    choose 9 ">31/12/2020 <01/02/2021"
    keys Return
}

scene_ordinato() {
    start pazienti.rec
    menu c 0
    menu o 0
    menu f 4
    keys Tab space Escape
    choose 6 roma
    choose 1 a
    keys Return
    keys Down shift+Down shift+Down
}

scene_unisci() {
    start pazienti.rec
    menu c 0
    menu o 1
    choose 8
    choose 12 fuma
    keys Return
}

scene_vuoti() {
    start pazienti.rec
    menu c 0
    menu c 2
    choose 12 " "
    keys Return
}

scene_cancellato() {
    start pazienti.rec
    menu o 3
    go_to 1
}

scene_matrice() {
    start pazienti.rec
    menu s 2
    for n in 1 2 6 9; do click_field "$n"; done
    part=1024x300+0+0
}

make_matrix() {
    menu s 2
    for n in "$@"; do click_field "$n"; done
    # The items before it are grey now.
    menu s 0
}

scene_stampa_ricerca() {
    start pazienti.rec
    make_matrix 1 2 6 9
    menu c 0
    menu s 1
    choose 6 roma
    keys Return
}

scene_stampa_rekord() {
    start pazienti.rec
    make_matrix 1 2 6 9
    menu s 0
    type_text 10
    keys Return
    type_text 14
    keys Return
}

scene_stampante() {
    start pazienti.rec
    menu f 1
    await_window "imposta stampante"
    part=1024x500+0+0
}

write_letter() {
    menu o 7
    type_text "Ambulatorio di medicina interna"
    keys Return Return
    type_text "Paziente: "
    click_field 1
    click_field 2
    keys Return
    type_text "Visita del "
    click_field 9
    keys Return
    type_text "Diagnosi: "
    click_field 8
    repeat 18 space
    keys Return Return
    type_text "La prossima visita va prenotata entro sei mesi."
}

scene_modello() {
    start pazienti.rec
    write_letter
}

scene_lettera() {
    start pazienti.rec
    write_letter
    show_menu o
    repeat 7 Down
    keys Return
    await_window Quorvin
    answer Return
    menu c 0
    menu o 6
    choose 1 rossi
    keys Return
    keys Down
}

scene_frequenza() {
    start pazienti.rec
    menu c 0
    menu t 0
    choose 8 " "
    keys Return
    keys ctrl+Return
}

make_table() {
    menu c 0
    menu t 1
    menu t 2
    choose 3 " "
    choose 9 2021
    keys Return
}

scene_tabella() {
    start pazienti.rec
    make_table
}

scene_grafico() {
    start pazienti.rec
    menu c 0
    menu t 1
    menu t 4
    menu t 2
    choose 3 " "
    choose 9 2021
    keys Return
    await_window Quorvin
    settle
    type_text "Visite del 2021"
    answer Return
}

scene_nuovo_file() {
    start pazienti.rec
    menu c 0
    menu e 2
    choose 6 roma
    keys Return
    await_window "salva il nuovo file"
    part=1024x600+0+0
}

scene_scritto() {
    scene_nuovo_file
    part=${screen_width}x$screen_height+0+0
    answer Return
}

scene_epidata() {
    start pazienti.rec
    go_to 7
    keys alt+d
    await_window Quorvin
    part=1024x620+0+0
}

scene_guida() {
    start pazienti.rec
    keys F1
}
