// The drawing into the open file. Records go out in blocks of some thousands.
#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

#include "files/Blocchi.h"
#include "files/BloccoEstensioni.h"
#include "files/Nativo.h"
#include "files/Richieste.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Registrazione.h"
#include "text/EndianConvert.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr std::int16_t versioneVecchia = 9;
constexpr std::size_t recordPerBlocco = 4096;
constexpr std::size_t posizioneConto = 76;

// The element count lies over record 1's own bytes, whatever they held.
void poniConto(elemento& disco) {
    const std::int32_t conto = EndiansLong_NtoB(indElem);
    std::memcpy(reinterpret_cast<unsigned char*>(&disco) + posizioneConto, &conto, sizeof conto);
}

void scriviPict(PicHandle h) {
    const std::string& dati = PictBytes(h);
    const auto n = static_cast<std::int32_t>(
        std::min<std::size_t>(dati.size(), static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())));
    scriviLong(n);
    scriviBlocco(dati.data(), n);
}

void scriviRecord() {
    std::vector<elemento> blocco(std::min(recordPerBlocco, static_cast<std::size_t>(indElem)));
    std::size_t pieni = 0;
    const auto svuota = [&] {
        scriviBlocco(blocco.data(), static_cast<std::int32_t>(pieni * sizeof(elemento)));
        pieni = 0;
    };
    for (std::int32_t n = 1; n <= indElem && !uscita; ++n) {
        elemento& disco = blocco[pieni++];
        disco = Elem(n);
        TrasformaElemNtoB(disco);
        if (n == 1) poniConto(disco);
        if (disco.tipo == tPict) {
            svuota();
            scriviPict(Elem(n).pict.maniglia);
        } else if (pieni == blocco.size()) {
            svuota();
        }
    }
    svuota();
}

}   // namespace

void ScriviDisegno(std::int16_t versione) {
    scrivii(versione);
    scrivir(xAttacco5);
    scrivir(yAttacco5);
    scrivib(OKAttacco5);
    scriviRecord();
    ScriviBlocchi();
    ScriviEstensioni();
}

void Scrividati() {
    // Kept: the older generation's file differs by this word alone; its readers stop before the blocks they do not know.
    ScriviDisegno(theItem == rEsporta ? versioneVecchia : versioneNativa);
    PoniAnnulla(aNiente);
}

}   // namespace tessaro
