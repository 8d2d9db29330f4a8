/** A table of text with two given columns: read, computed and written in pieces. */
import type { Ktl, PropertyName } from 'ktl-steam';
import { plain } from './format.js';
import type { TableJob, TableResult } from './jobs.js';

/** The mark that separates columns, and whether numbers have a decimal comma. */
export interface Form {
    readonly separator: ',' | ';' | '\t';
    readonly comma: boolean;
}

/** The form of a table by its header: the first of tab, semicolon and comma that it has. */
export function formOf(header: string, firstRow: string): Form {
    const separator = header.includes('\t') ? '\t' : header.includes(';') ? ';' : ',';
    return { separator, comma: separator !== ',' && /\d,\d/.test(firstRow) };
}

/** The fields of a line; fields in quotes may have separators and doubled quotes. */
export function fields(line: string, separator: string): string[] {
    if (!line.includes('"')) return line.split(separator).map((field) => field.trim());
    const found: string[] = [];
    let field = '';
    let quoted = false;
    for (let i = 0; i < line.length; ++i) {
        const c = line[i]!;
        if (c === '"') {
            if (quoted && line[i + 1] === '"') field += line[++i]!;
            else quoted = !quoted;
        } else if (c === separator && !quoted) {
            found.push(field.trim());
            field = '';
        } else field += c;
    }
    found.push(field.trim());
    return found;
}

const decimal = /^[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?$/;

/** A number of a table; NaN if it is none. Blanks between digits are allowed. */
export function numberOf(text: string, comma: boolean): number {
    if (decimal.test(text)) return Number(text);
    let given = text.replace(/(?<=\d)[ \u00a0\u202f](?=\d)/g, '');
    if (comma) given = given.replace(',', '.');
    return decimal.test(given) ? Number(given) : NaN;
}

const split = (text: string): string[] => (text.includes('\r') ? text.split(/\r\n|\n|\r(?!$)/) : text.split('\n'));

/** Lines of a blob, in runs, without the last line's end. */
async function* lineRuns(source: Blob, progress: (share: number) => void): AsyncGenerator<string[]> {
    const size = 1 << 20;
    const decoder = new TextDecoder();
    let rest = '';
    for (let at = 0; at < source.size; at += size) {
        const bytes = await source.slice(at, at + size).arrayBuffer();
        const text = rest + decoder.decode(bytes, { stream: at + size < source.size });
        const lines = split(text);
        rest = lines.pop()!;
        if (rest.length > 1e6) throw new Error('a line is longer than a million characters');
        yield lines;
        progress(Math.min(1, (at + size) / source.size));
    }
    if (rest !== '') yield [rest.replace(/\r$/, '')];
}

/** The computation of a table, run by run. */
class Table {
    private readonly parts: string[] = [];
    private readonly preview: string[][] = [];
    private form: Form | null = null;
    private columns: { first: number; second: number; width: number } | null = null;
    private line = 0;
    private rows = 0;
    private solved = 0;
    private bad: TableResult['bad'] = null;

    constructor(
        private readonly ktl: Ktl,
        private readonly job: TableJob,
    ) {}

    /** Reads the header from the first run that has one; a sentence if it has not the columns of the pair. */
    private open(header: string, firstRow: string): string {
        this.form = formOf(header, firstRow);
        const names = fields(header.replace(/^\ufeff/, ''), this.form.separator);
        const found = this.ktl.findColumns(names, this.job.pair, this.job.atmosphere);
        if ('error' in found) return found.error;
        this.columns = { first: found.first, second: found.second, width: names.length };
        const results = this.job.wanted.map((name) => {
            const row = this.ktl.lists.properties.find((one) => one.name === name)!;
            return row.unit === '1' ? row.code : `${row.code}_${row.unit}`;
        });
        this.write([...names, ...results, 'error'], header.replace(/^\ufeff/, ''));
        return '';
    }

    private write(all: readonly string[], begin: string): void {
        const { separator } = this.form!;
        const added = all.slice(this.columns!.width).map((field) => (field.includes(separator) ? `"${field}"` : field));
        this.parts.push(begin, separator, added.join(separator), '\n');
        if (this.preview.length < 11) this.preview.push([...all]);
    }

    /** Computes a run of lines; a sentence if the table as a whole is at fault. */
    take(lines: readonly string[]): string {
        let begin = 0;
        if (!this.columns) {
            while (begin < lines.length && lines[begin]!.trim() === '') ++begin;
            if (begin === lines.length) return '';
            const fault = this.open(lines[begin]!, lines.slice(begin + 1).find((line) => line.trim() !== '') ?? '');
            if (fault) return fault;
            this.line += ++begin;
        }
        const { first, second, width } = this.columns!;
        const { separator, comma } = this.form!;
        const given = lines.slice(begin);
        const a = new Float64Array(given.length);
        const b = new Float64Array(given.length);
        const split = given.map((line, i) => {
            const row = fields(line, separator);
            a[i] = numberOf(row[first] ?? '', comma);
            b[i] = numberOf(row[second] ?? '', comma);
            return row;
        });
        this.ktl.convert(a, b);
        const { columns, status } = this.ktl.batch(this.job.pair, a, b, this.job.wanted);
        given.forEach((line, i) => {
            ++this.line;
            if (line.trim() === '') return;
            ++this.rows;
            const row = split[i]!;
            const reason = this.reason(row, width, Number.isNaN(a[i]!) ? first : Number.isNaN(b[i]!) ? second : -1, status[i]!);
            if (reason === '') ++this.solved;
            else this.bad ??= { line: this.line, reason };
            const values = this.job.wanted.map((name: PropertyName) => {
                const text = reason === '' ? plain(columns[name]![i]!) : '';
                return comma ? text.replace('.', ',') : text;
            });
            if (row.length === width) this.write([...row, ...values, reason], line);
            else this.write([...Array<string>(width).fill(''), ...values, reason], separator.repeat(width - 1));
        });
        return '';
    }

    private reason(row: readonly string[], width: number, place: number, status: number): string {
        if (row.length !== width) return `${row.length} columns instead of ${width}`;
        if (place >= 0) return row[place] === '' ? 'a value is missing' : `'${row[place]!.slice(0, 40)}' is not a number`;
        return status === 0 ? '' : this.ktl.lists.statuses[status]!.sentence;
    }

    result(seconds: number): TableResult | { error: string } {
        if (!this.columns) return { error: "'the table' is empty; its first line should name the columns" };
        const content = new Blob([this.parts.join('')], { type: 'text/csv' });
        return { content, rows: this.rows, solved: this.solved, bad: this.bad, preview: this.preview, seconds };
    }
}

export async function computeTable(
    ktl: Ktl,
    job: TableJob,
    progress: (share: number) => void,
): Promise<TableResult | { readonly error: string }> {
    const begin = performance.now();
    const table = new Table(ktl, job);
    for await (const lines of lineRuns(job.source, progress)) {
        const fault = table.take(lines);
        if (fault) return { error: fault };
    }
    return table.result((performance.now() - begin) / 1000);
}
