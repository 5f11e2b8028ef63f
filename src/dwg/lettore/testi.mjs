// Texts of files before 2007, in the code page that the file names.
import { dwgCodePageToEncoding } from '@mlightcad/libredwg-web';

// What code page 1252 has between 0x80 and 0x9F. Some releases of Node decode it as Latin-1, which has nothing there.
const alti = '\u20ac\u0081\u201a\u0192\u201e\u2026\u2020\u2021\u02c6\u2030\u0160\u2039\u0152\u008d\u017d\u008f'
    + '\u0090\u2018\u2019\u201c\u201d\u2022\u2013\u2014\u02dc\u2122\u0161\u203a\u0153\u009d\u017e\u0178';

export function decodificatore(pagina) {
    let nome = 'windows-1252';
    try {
        nome = dwgCodePageToEncoding(pagina) || nome;
    } catch {
        // a page that nobody knows: as the most frequent one
    }
    if (/^(windows-1252|iso-8859-1|latin1|ascii|us-ascii)$/i.test(nome))
        return { decode: b => Buffer.from(b).toString('latin1').replace(/[\x80-\x9f]/g, c => alti[c.charCodeAt(0) - 0x80]) };
    return new TextDecoder(nome);
}
