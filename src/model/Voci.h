// Menus and their items by number, as resources/menus has them: what a command chooses, and what the rooms tick, name and
// turn off. It stands on the ground because ticks are set where the state changes. Menus of plain values (patterns, sizes,
// thicknesses, fonts, colours, points) have no names for their items. tools/check-numbers holds it to the resources.
#pragma once

#include <cstdint>

namespace tessaro {

enum NumeroMenu : std::int16_t {
    menuAiuto = 1,
    menuArchivio = 2,
    menuModifica = 3,
    menuDisegna = 4,
    menuTrasforma = 5,
    menuStrumenti = 6,
    menuPatternPenna = 20,
    menuZoom = 22,
    menuNomiColori = 23,   // in no menu of the bar: 104 shows its items
    menuSpessore = 24,
    menuColonne = 29,
    menuEsporta = 40,
    menuApriAltri = 50,
    menuImporta = 60,
    menuCaratteri = 100,
    menuCorpi = 101,
    menuStili = 102,
    menuAref = 103,
    menuColore = 104,
    menuPatternArea = 105,
    menuIngressoAttacco = 106,
    menuAttacchiOrigine = 107,
    menuAttacchiDestinazione = 108,
    menuSenzaComandi = 109,
    menuScorciatoie = 110,
    menuImmagine = 111,
    menuVincoli = 112,
    menuAgganci = 9400,   // an item is its TipoAggancio
    menuAltriBottoni = 9435,
    menuRecenti = 9480,
    menuLucidi = 9483,
    menuForme = 9484,
    menuLingue = 9491,
    menuUnita = 9492,
};

namespace voci {

namespace aiuto {
enum : std::int16_t { informazioni = 1, guida = 2 };
}
namespace archivio {
enum : std::int16_t {
    nuovo = 1,
    apri = 2,
    chiudi = 3,
    salva = 4,
    salvaCome = 5,
    esporta = 7,
    importa = 8,
    formato = 9,
    apriAltri = 10,
    impostaPagina = 13,
    stampa = 14,
    esci = 16,
    anteprima = 17,
    recenti = 18,
    esempio = 19,
};
}
namespace recenti {
enum : std::int16_t {
    primo = 1,   // to 10, the one opened last first
    ultimo = 10,
    svuota = 11,
};
}
namespace modifica {
enum : std::int16_t {
    annulla = 1,
    taglia = 3,
    copia = 4,
    incolla = 5,
    cancella = 6,
    selezionaTutto = 8,
    primoPiano = 9,
    inFondo = 10,
    sposta = 12,
    separaImmagine = 13,
    inPoligonali = 14,
    inSegmenti = 15,
    suLucido = 16,
    scalaImmagine = 17,
    immagineDaSelezione = 18,
    ripeti = 19,
    bloccaImmagini = 25,
    incollaSulPosto = 20,
    incollaImmagine = 21,
    preferenze = 30,
    proprieta = 31,
};
}
namespace disegna {
enum : std::int16_t {
    segmento = 1,
    polilinea = 2,
    marker = 3,
    formaMarker = 4,
    quota = 5,
    testo = 6,
    cerchio = 7,
    arco = 8,
    colore = 10,
    spessore = 11,
    patternPenna = 12,
    patternArea = 13,
    tratteggi = 14,
    caratteri = 16,
    corpi = 17,
    stili = 18,
    aref = 19,
    vertice = 20,
    markerDigitato = 21,
};
}
namespace trasforma {
enum : std::int16_t {
    indicaOrigine = 1,
    origineDaSelezione = 2,
    scriviOrigine = 3,
    dinamica = 5,
    indicaDestinazione = 6,
    destinazioneDaSelezione = 7,
    aggiungi = 8,
    meshOrigine = 10,
    meshDestinazione = 11,
    immagine = 12,
    ruotaImmagine = 15,
    distorsione = 17,
    rapporto = 18,
    puntiControllo = 30,
    attacchi = 31,
};
}
namespace strumenti {
enum : std::int16_t {
    calcolatrice = 1,
    paramGraf = 2,
    lucidi = 3,
    colori = 4,
    griglia = 5,
    zoom = 6,
    vincoli = 7,
    categoria = 8,
    insieme = 9,
    coordinateReali = 11,
    georeferenzia = 12,
    tavolettaSulFoglio = 14,
    tavolettaSullaVista = 15,
    curvePerCentro = 17,
    curvePerPunti = 18,
    lettura = 20,
    tavoletta = 21,
    riferimento = 26,
    pannelloLucidi = 22,
};
}
namespace zoom {
enum : std::int16_t {
    foglio = 1,
    reale = 2,
    doppio = 3,
    quadruplo = 4,
    meta = 5,
    quarto = 6,
    ingrandisci = 7,
    riduci = 8,
    rettangolo = 9,
    rilievo = 10,
    disegno = 11,
};
}
namespace esporta {
enum : std::int16_t {
    versionePrecedente = 1,
    immagineDisegno = 2,
    immagineSelezionata = 3,
    dwg = 4,
    xyz = 5,
    miniCad2D = 7,
    miniCad3D = 8,
    mappa = 12,
    geoTiff = 13,
};
}
namespace apriAltri {
enum : std::int16_t { suiPunti = 1, suQuattroPunti = 2, sulleCoordinate = 3 };
}
namespace importa {
enum : std::int16_t { immagine = 1, dwg = 2, xyz = 3, cxf = 4, scelteDWG = 5, mappa = 12, raster = 13 };
}
namespace stili {
enum : std::int16_t { normale = 1, grassetto = 3, corsivo = 4, sottolineato = 5, contornato = 6, ombreggiato = 7 };
}
// A control point's number is its item.
namespace attacchiOrigine {
enum : std::int16_t { primo = 1, secondo = 2, terzo = 3, quarto = 4, quinto = 5, verifica = 6 };
}
namespace attacchiDestinazione {
enum : std::int16_t { quinto = 5, verifica = 6 };
}
namespace scorciatoie {
enum : std::int16_t {
    primoOrigine = 1,   // to 4
    ultimoOrigine = 4,
    primoDestinazione = 6,   // to 9
    ultimoDestinazione = 9,
    cambiaDinamica = 11,
    dinamicaAttiva = 13,   // shows the state that 11 turns
    termina = 14,          // the figure in progress
    chiudi = 15,
    indietro = 16,
    abbandona = 17,
    rinuncia = 18,   // the tool or move in hand
    taglia = 19,
    copia = 20,
    incolla = 21,
    cancella = 22,
    incollaSulPosto = 23,
    proprieta = 24,
};
}
namespace immagine {
enum : std::int16_t { conAttacchi = 1, conMesh = 2 };
}
namespace vincoli {
enum : std::int16_t {
    punto = 1,
    quota = 2,
    parallelo = 3,
    perpendicolare = 4,
    orizzontale = 5,
    verticale = 6,
    griglia = 7,
    agganci = 8,
};
}

}   // namespace voci

}   // namespace tessaro
