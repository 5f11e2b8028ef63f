// The drawing into the open file. Records go out in blocks of some thousands.
#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

#include "dialogs/Parametri.h"
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

// The bytes on their way, block by block: once the person asks to stop, `uscita` is set and nothing more is written.
class Avanzamento {
    Termometro termometro{LavoroLungo::salva};
    double scritti = 0, tutti = 0;

public:
    Avanzamento() {
        tutti = static_cast<double>(indElem) * sizeof(elemento);
        for (std::int32_t n = 3; n <= indElem; ++n)
            if (Elem(n).tipo == tPict) tutti += static_cast<double>(PictBytes(Elem(n).pict.maniglia).size());
    }
    void blocco(const void* dati, std::size_t byte) {
        scriviBlocco(dati, static_cast<std::int32_t>(byte));
        scritti += static_cast<double>(byte);
        if (!uscita && !termometro.passo(scritti / tutti)) uscita = 1;
    }
};

void scriviPict(PicHandle h, Avanzamento& avanzamento) {
    constexpr std::size_t perVolta = 4 << 20;
    const std::string& dati = PictBytes(h);
    const auto n = std::min<std::size_t>(dati.size(), std::numeric_limits<std::int32_t>::max());
    scriviLong(static_cast<std::int32_t>(n));
    for (std::size_t i = 0; i < n && !uscita; i += perVolta)
        avanzamento.blocco(dati.data() + i, std::min(perVolta, n - i));
}

void scriviRecord() {
    std::vector<elemento> blocco(std::min(recordPerBlocco, static_cast<std::size_t>(indElem)));
    std::size_t pieni = 0;
    Avanzamento avanzamento;
    const auto svuota = [&] {
        avanzamento.blocco(blocco.data(), pieni * sizeof(elemento));
        pieni = 0;
    };
    for (std::int32_t n = 1; n <= indElem && !uscita; ++n) {
        elemento& disco = blocco[pieni++];
        disco = Elem(n);
        TrasformaElemNtoB(disco);
        if (n == 1) poniConto(disco);
        if (disco.tipo == tPict) {
            svuota();
            scriviPict(Elem(n).pict.maniglia, avanzamento);
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
