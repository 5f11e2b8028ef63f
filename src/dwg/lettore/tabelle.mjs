// Header values and the tables that entities refer to by name: line types, layers, text styles, blocks, layouts.
import { Dwg_Object_Type as Tipo } from '@mlightcad/libredwg-web';

export const gradi = 180 / Math.PI;

// Files before R13, as the library numbers versions.
export const eAntico = (lib, dati) => lib.dwg_get_version_type(dati).version < 17;

// Line weights as files number them, in hundredths of a millimetre; 29 to 31 are by layer, by block and default.
const spessori = [0, 5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211];
export function spessore(numero) {
    if (numero === 29 || numero === undefined) return -1;
    if (numero === 30) return -2;
    if (numero === 31) return -3;
    return spessori[numero & 31] ?? -1;
}

// The number of a colour, or its red, green and blue where it has one of its own.
export function colore(flusso, c) {
    if (!c) return;
    const cima = (c.rgb >>> 24) & 0xff;
    if (cima === 0xc2 || c.method === 0xc2) {
        flusso.tag(420, c.rgb & 0xffffff);
        return;
    }
    if (c.index !== undefined && c.index !== 256) flusso.tag(62, c.index);
}

// A field by its name; what the class of this version has not is undefined.
export function campo(lib, o, nome) {
    const v = lib.dwg_dynapi_entity_value(o, nome);
    return v && v.success !== 0 ? v.data : undefined;
}

// A field of the part that all entities have.
export function campoComune(lib, o, nome) {
    const v = lib.dwg_dynapi_common_value(o, nome);
    return v && v.success ? v.data : undefined;
}

// The library takes references out of an array of pointers: this is one of a single place.
let unPosto = 0;
export function postoInTavola(lib, puntatore) {
    if (!puntatore) return undefined;
    const memoria = lib.wasmInstance;
    unPosto ||= memoria._emscripten_builtin_malloc(8);
    memoria.HEAPU32[unPosto >> 2] = puntatore;
    return lib.dwg_ptr_to_object_ref_array(unPosto, 1)[0]?.r11_idx;
}

// Files before R13 name a table's record by its place; `righe` are the names in order.
export const nomePerPosto = (lib, puntatore, righe) => righe[postoInTavola(lib, puntatore)];

export function oggetti(lib, dati, tipo) {
    const tutti = [];
    const quanti = lib.dwg_get_num_objects(dati);
    for (let i = 0; i < quanti; ++i) {
        const o = lib.dwg_get_object(dati, i);
        if (o && lib.dwg_object_get_fixedtype(o) === tipo) tutti.push(o);
    }
    return tutti;
}

const chiave = h => Number(h?.absolute_ref || h?.value || 0);
export const maniglia = (lib, o) => chiave(lib.dwg_object_get_handle_object(o));

function intestazione(lib, dati, flusso) {
    const h = nome => lib.dwg_dynapi_header_data(dati, nome);
    flusso.sezione('HEADER');
    const valore = (nome, codice, v) => {
        if (v === undefined) return;
        flusso.tag(9, nome);
        if (typeof v === 'object') flusso.punto(codice, v);
        else flusso.tag(codice, v);
    };
    valore('$ACADVER', 1, 'AC1021');   // texts are UTF-8
    valore('$EXTMIN', 10, h('EXTMIN'));
    valore('$EXTMAX', 10, h('EXTMAX'));
    valore('$LTSCALE', 40, h('LTSCALE'));
    valore('$INSUNITS', 70, h('INSUNITS'));
    flusso.fineSezione();
}

// Starts a table's record: its kind, its handle, its name.
function riga(flusso, tipo, numero, nome) {
    flusso.tag(0, tipo);
    flusso.tag(5, numero.toString(16).toUpperCase());
    flusso.tag(2, nome);
}

function tavola(flusso, nome, righe) {
    flusso.tag(0, 'TABLE');
    flusso.tag(2, nome);
    righe();
    flusso.tag(0, 'ENDTAB');
}

// Writes header and tables; gives the names that entities ask by handle, and the blocks with their base points.
export function tabelle(lib, dati, flusso) {
    const antico = eAntico(lib, dati);
    const nomi = { lucidi: new Map(), linee: new Map(), stili: new Map(), blocchi: new Map(), inOrdine: { lucidi: [], linee: [], stili: [], blocchi: [] } };
    const leggi = (tipo, dove, poi, inOrdine = []) => {
        for (const o of oggetti(lib, dati, tipo)) {
            const t = lib.dwg_object_to_object_tio(o);
            if (!t) continue;
            const nome = campo(lib, t, 'name');
            if (typeof nome !== 'string') continue;
            const numero = maniglia(lib, o);
            dove.set(numero, nome);
            // What the library puts into every drawing has a handle; records of files before R13 have none of their own.
            if (!lib.dwg_object_get_handle_object(o)?.size) inOrdine.push(nome);
            poi(t, numero, nome, o);
        }
    };
    intestazione(lib, dati, flusso);
    flusso.sezione('TABLES');
    tavola(flusso, 'LTYPE', () => leggi(Tipo.DWG_TYPE_LTYPE, nomi.linee, (t, numero, nome) => {
        riga(flusso, 'LTYPE', numero, nome);
        flusso.tag(3, campo(lib, t, 'description') ?? '');
        const tratti = lib.dwg_entity_ltype_get_dashes?.(t) ?? [];
        flusso.tag(73, tratti.length);
        flusso.tag(40, campo(lib, t, 'pattern_len') ?? 0);
        for (const d of tratti) flusso.tag(49, d.length);
    }, nomi.inOrdine.linee));
    tavola(flusso, 'LAYER', () => leggi(Tipo.DWG_TYPE_LAYER, nomi.lucidi, (t, numero, nome) => {
        riga(flusso, 'LAYER', numero, nome);
        const spento = campo(lib, t, 'off') || (campo(lib, t, 'on') === 0 ? 1 : 0);
        const c = campo(lib, t, 'color');
        flusso.tag(70, (campo(lib, t, 'frozen') ? 1 : 0) | (campo(lib, t, 'locked') ? 4 : 0));
        if (c) {
            const indice = Math.abs(c.index ?? 7) || 7;
            flusso.tag(62, spento ? -indice : indice);
            if (((c.rgb >>> 24) & 0xff) === 0xc2) flusso.tag(420, c.rgb & 0xffffff);
        }
        const linea = campo(lib, t, 'ltype');
        const suaLinea = antico ? nomePerPosto(lib, linea, nomi.inOrdine.linee) : linea && lib.dwg_ref_get_object_name(linea);
        flusso.tag(6, suaLinea || 'CONTINUOUS');
        const peso = campo(lib, t, 'linewt');
        if (peso !== undefined && !antico) flusso.tag(370, spessore(peso));
    }, nomi.inOrdine.lucidi));
    tavola(flusso, 'STYLE', () => leggi(Tipo.DWG_TYPE_STYLE, nomi.stili, (t, numero, nome) => {
        riga(flusso, 'STYLE', numero, nome);
        flusso.tag(40, campo(lib, t, 'text_size') ?? 0);
        flusso.tag(41, campo(lib, t, 'width_factor') ?? 1);
        flusso.tag(50, (campo(lib, t, 'oblique_angle') ?? 0) * gradi);
        flusso.tag(3, campo(lib, t, 'font_file') ?? '');
        flusso.tag(4, campo(lib, t, 'bigfont_file') ?? '');
    }, nomi.inOrdine.stili));
    leggi(Tipo.DWG_TYPE_BLOCK_HEADER, new Map(), (t, numero, nome) => {
        // The header's own name may be cut to "*D"; the block entity has it whole. Before R13 they are all called so.
        const sue = nomi.inOrdine.blocchi, posto = sue.length - 1;
        const anonimo = antico && posto >= 0 && sue[posto] === nome && nome.startsWith('*');
        const intero = anonimo ? `${nome}${posto}` : lib.dwg_entity_block_header_get_block(t)?.name || nome;
        if (antico && posto >= 0 && sue[posto] === nome) sue[posto] = intero;
        nomi.blocchi.set(numero, { nome: intero, base: campo(lib, t, 'base_pt') ?? { x: 0, y: 0, z: 0 }, flag: campo(lib, t, 'flag') ?? 0 });
    }, nomi.inOrdine.blocchi);
    tavola(flusso, 'BLOCK_RECORD', () => {
        for (const [numero, b] of nomi.blocchi) riga(flusso, 'BLOCK_RECORD', numero, b.nome);
    });
    flusso.fineSezione();
    return nomi;
}
