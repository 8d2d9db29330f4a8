/** The tab of a turbine test: efficiencies and heat rate after both formulations, and the expansion lines. */
import type { Cell, Comparison, Ktl, ReportTable, Scale } from 'ktl-steam';
import example from '../../examples/turbine_test.csv';
import { element, make, setFault } from './dom.js';
import { expansionPanel } from './expansion.js';
import { language, sentence, term, word } from './words.js';

type Report = Exclude<Comparison, { error: string }>;

export const cellText = (cell: Cell): string => {
    if (typeof cell === 'string') return term(cell);
    const text = cell[0].replace('-', '−');
    return language() === 'de' ? text.replace('.', ',') : text;
};

export class AcceptanceTab {
    private readonly text = element<HTMLTextAreaElement>('test-text');
    private report: Report | null = null;

    constructor(private readonly ktl: Ktl) {
        element('test-form').addEventListener('submit', (event) => {
            event.preventDefault();
            this.run();
        });
        element('test-example').addEventListener('click', () => {
            this.text.value = example;
            this.run();
        });
    }

    speak(): void {
        if (this.report) this.show(this.report);
    }

    private run(): void {
        const scale = Number(element<HTMLSelectElement>('test-scale').value) as Scale;
        // A spreadsheet pastes tabs between its columns.
        const given = this.text.value.includes('\t') ? this.text.value.replaceAll('\t', ',') : this.text.value;
        const comparison = this.ktl.compare(given, scale);
        const failed = 'error' in comparison;
        setFault(this.text, element('test-fault'), failed ? sentence(comparison.error) : '');
        this.report = failed ? null : comparison;
        if (this.report) this.show(this.report);
        else element('test-result').replaceChildren();
    }

    private show(report: Report): void {
        const table = (name: ReportTable['name']): ReportTable | undefined => report.tables.find((one) => one.name === name);
        const parts: Node[] = [];
        if (!report.complete) parts.push(make('p', { class: 'message bad' }, word('incomplete')));
        const [totals, sections, shares, points] = [table('totals'), table('sections'), table('shares'), table('points')];
        if (totals) parts.push(this.totals(totals, shares));
        for (const one of [sections, shares])
            if (one) parts.push(make('section', {}, reportTable(one, one === shares ? mostMoving(one) : -1)));
        for (const note of report.notes) parts.push(make('p', { class: 'hint' }, sentence(note)));
        if (points) {
            parts.push(
                make('div', { class: 'panels' },
                    expansionPanel(this.ktl, points, sections, '1967'), expansionPanel(this.ktl, points, sections, 'IF97')),
                make('details', {}, make('summary', {}, word('points_details')), reportTable(points, -1)),
            );
        }
        element('test-result').replaceChildren(...parts);
    }

    private totals(totals: ReportTable, shares: ReportTable | undefined): HTMLElement {
        const boxes = totals.rows.map(([name, unit, older, newer, difference, relative]) =>
            make('div', {},
                make('div', { class: 'quiet' }, `${term(cellText(name!))}, ${cellText(unit!)}`),
                make('div', { class: 'big' }, cellText(newer!)),
                make('div', { class: 'quiet' }, `IF97; 1967: ${cellText(older!)}`),
                make('div', {}, `${cellText(difference!)} (${cellText(relative!)} %)`)));
        const most = shares ? mostMoving(shares) : -1;
        if (shares && most >= 0) {
            const row = shares.rows[most]!;
            boxes.push(make('div', {}, make('div', { class: 'quiet' }, word('moves_most')),
                make('div', { class: 'big' }, cellText(row[0]!)),
                make('div', { class: 'quiet' }, `${cellText(row[5]!)} kJ/kWh, ${cellText(row[6]!)} %`)));
        }
        return make('div', { class: 'totals' }, ...boxes);
    }
}

/** The row of the point that changes the heat rate most; -1 if there is no heat rate. */
function mostMoving(shares: ReportTable): number {
    const size = (row: readonly Cell[]): number => (Array.isArray(row[5]) ? Math.abs(row[5][1] as number) : -1);
    const sizes = shares.rows.map(size);
    const most = Math.max(...sizes);
    return most < 0 ? -1 : sizes.indexOf(most);
}

/** A table of the report. Columns without any text are left out; one row may be marked. */
function reportTable(table: ReportTable, marked: number): HTMLElement {
    const used = table.columns.map((_, k) => table.rows.some((row) => row[k] !== ''));
    const numeric = table.columns.map((_, k) => table.rows.some((row) => typeof row[k] !== 'string'));
    const kind = (k: number): Record<string, string> => (numeric[k] ? { class: 'number' } : {});
    const head = table.columns.flatMap((name, k) =>
        used[k] ? [make('th', { scope: 'col', ...kind(k) }, term(name).replaceAll('_', '\u00a0'))] : []);
    const rows = table.rows.map((row, i) => {
        const line = make('tr', {}, ...row.flatMap((cell, k) =>
            used[k] ? [k === 0 ? make('th', { scope: 'row' }, cellText(cell)) : make('td', kind(k), cellText(cell))] : []));
        if (i === marked) line.className = 'most';
        return line;
    });
    const title = term(table.title);
    return make('div', { class: 'scroll', tabindex: '0', role: 'region', 'aria-label': title },
        make('table', {}, make('caption', {}, title), make('thead', {}, make('tr', {}, ...head)), make('tbody', {}, ...rows)));
}
