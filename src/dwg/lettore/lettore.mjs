// Reads one DWG file and writes what it holds to standard output as a stream of tagged values: the layout of a binary DXF,
// which the program's own reader takes. A process of its own, so that a damaged file harms nothing but it.
//
//     node --liftoff-only lettore.mjs FILE.dwg
//
// Status: 0 the stream is whole; 1 wrong use; 2 the file cannot be read; 3 it is no DWG, or one too damaged to tell
// anything from. One line on standard error says why.
import fs from 'node:fs';

import { Dwg_File_Type, LibreDwg } from '@mlightcad/libredwg-web';

import { entita } from './entita.mjs';
import { Flusso } from './flusso.mjs';
import { tabelle } from './tabelle.mjs';
import { decodificatore } from './testi.mjs';

const usoSbagliato = 1, nonSiLegge = 2, nonDwg = 3;

function finisci(stato, motivo) {
    process.stderr.write(`${motivo}\n`);
    process.exit(stato);
}

// The library tells its troubles on the console; standard output belongs to the stream.
console.log = console.info = console.warn = () => {};

const nome = process.argv[2];
if (!nome) finisci(usoSbagliato, 'usage: lettore.mjs FILE.dwg');
let byte;
try {
    byte = fs.readFileSync(nome);
} catch (e) {
    finisci(nonSiLegge, `${nome}: ${e.code ?? e.message}`);
}
if (byte.length < 6 || byte.toString('latin1', 0, 2) !== 'AC' && byte.toString('latin1', 0, 2) !== 'MC')
    finisci(nonDwg, `${nome}: no DWG file`);

try {
    const lib = await LibreDwg.create();
    const dati = lib.dwg_read_data(byte.buffer.slice(byte.byteOffset, byte.byteOffset + byte.length), Dwg_File_Type.DWG);
    if (!dati || lib.dwg_get_num_objects(dati) === 0) finisci(nonDwg, `${nome}: nothing in it can be read`);
    lib.decoder = decodificatore(lib.dwg_get_codepage(dati));
    const flusso = new Flusso();
    const nomi = tabelle(lib, dati, flusso);
    entita(lib, dati, flusso, nomi);
    flusso.chiudi();
    process.exitCode = 0;
} catch (e) {
    finisci(nonDwg, `${nome}: ${e.message ?? e}`);
}
