/** The tab of tables: a text or a file with two given columns gets the wanted ones. */
import type { Ktl, PairName, PropertyName } from 'ktl-steam';
import { download, element, make, setFault } from './dom.js';
import { meaning, shown, symbol } from './format.js';
import type { Jobs, TableResult } from './jobs.js';
import { fillPairs } from './state_tab.js';
import { language, sentence, word } from './words.js';

const usual: readonly PropertyName[] = ['t', 'v', 's', 'x'];

export class TableTab {
    private readonly text = element<HTMLTextAreaElement>('table-text');
    private readonly fault = element('table-fault');
    private readonly progress = element<HTMLProgressElement>('table-progress');
    private readonly jobs: Jobs;
    private file: File | null = null;
    private result: TableResult | null = null;

    constructor(
        private readonly ktl: Ktl,
        jobs: () => Jobs,
    ) {
        this.jobs = jobs();
        fillPairs(element<HTMLSelectElement>('table-pair'), ktl);
        element<HTMLSelectElement>('table-pair').value = 'ph';
        this.text.value = 'p_bar,h [kJ/kg]\n1,2700\n10,2800\n100,2800\n165,3400\n';
        element('table-form').addEventListener('submit', (event) => {
            event.preventDefault();
            void this.run();
        });
        element('table-cancel').addEventListener('click', () => this.jobs.cancel());
        element('table-download').addEventListener('click', () => {
            if (this.result) download('ktl.csv', this.result.content);
        });
        element<HTMLInputElement>('table-file').addEventListener('change', (event) =>
            this.take((event.target as HTMLInputElement).files?.[0]),
        );
        this.text.addEventListener('input', () => this.forget());
        const drop = element('drop');
        drop.addEventListener('dragover', (event) => event.preventDefault());
        drop.addEventListener('drop', (event) => {
            event.preventDefault();
            const file = event.dataTransfer?.files[0];
            if (file) this.take(file);
            else this.text.value = event.dataTransfer?.getData('text/plain') ?? '';
        });
        this.speak();
    }

    speak(): void {
        const place = element('table-wanted');
        const checked = new Set<string>(
            place.childElementCount === 0
                ? usual
                : [...place.querySelectorAll<HTMLInputElement>('input:checked')].map((box) => box.value),
        );
        place.replaceChildren(
            ...this.ktl.lists.properties.map((row) => {
                const box = make('input', { type: 'checkbox', value: row.name });
                box.checked = checked.has(row.name);
                const name = row.name === 'region' ? 'region' : meaning(row);
                return make('label', {}, box, make('span', {}, name + (row.name === 'region' ? '' : `, ${symbol(row.name)}`)));
            }),
        );
        if (this.result) this.show(this.result);
    }

    private take(file: File | undefined): void {
        if (!file) return;
        this.file = file;
        element('table-name').textContent = `${file.name}, ${shown(file.size / 1e6, 3)} MB`;
        setFault(this.text, this.fault, '');
    }

    /** A text takes the place of a file. */
    private forget(): void {
        this.file = null;
        element<HTMLInputElement>('table-file').value = '';
        element('table-name').textContent = '';
        setFault(this.text, this.fault, '');
    }

    private async run(): Promise<void> {
        const source = this.file ?? new Blob([this.text.value]);
        const wanted = [...element('table-wanted').querySelectorAll<HTMLInputElement>('input:checked')].map(
            (box) => box.value as PropertyName,
        );
        const missing = source.size === 0 ? word('nothing_given') : wanted.length === 0 ? word('nothing_wanted') : '';
        setFault(this.text, this.fault, missing);
        if (missing) return;
        this.busy(true);
        this.clear();
        try {
            const pair = element<HTMLSelectElement>('table-pair').value as PairName;
            const result = await this.jobs.run(
                { kind: 'table', source, pair, wanted, atmosphere: this.atmosphere() },
                (share) => (this.progress.value = share),
            );
            if ('error' in result) setFault(this.text, this.fault, sentence(result.error));
            else this.show(result);
        } catch (fault) {
            const reason = fault instanceof Error ? fault.message : String(fault);
            if (reason === 'cancelled') element('table-result').textContent = word('cancelled');
            else setFault(this.text, this.fault, reason);
        }
        this.busy(false);
    }

    /** The atmosphere given in the tab of one state, for gauge pressures. */
    private atmosphere(): number {
        const reading = this.ktl.read('p', element<HTMLInputElement>('atmosphere').value);
        return 'value' in reading ? reading.value : -1;
    }

    private busy(busy: boolean): void {
        this.progress.hidden = !busy;
        this.progress.value = 0;
        element<HTMLButtonElement>('table-run').disabled = busy;
        element<HTMLButtonElement>('table-cancel').disabled = !busy;
        if (busy) element('table-cancel').focus();
    }

    private clear(): void {
        this.result = null;
        for (const id of ['table-result', 'table-bad']) element(id).textContent = '';
        for (const id of ['table-bad', 'table-download', 'table-preview']) element(id).hidden = true;
    }

    private show(result: TableResult): void {
        this.result = result;
        const count = (n: number): string => n.toLocaleString(language());
        const rate = result.rows / Math.max(result.seconds, 1e-3);
        element('table-result').textContent =
            `${count(result.rows)} ${word('rows')}, ${count(result.solved)} ${word('rows_solved')}` +
            (result.rows >= 10_000 ? ` (${count(Math.round(rate / 1000) * 1000)} ${word('per_second')})` : '');
        const bad = element('table-bad');
        bad.hidden = result.bad === null;
        if (result.bad) bad.textContent = `${word('first_bad')} ${result.bad.line}: ${sentence(result.bad.reason)}`;
        element('table-download').hidden = false;
        const [head, ...rows] = result.preview;
        const numeric = (text: string): boolean => /^[+-]?[\d.,]+(e[+-]?\d+)?$/i.test(text);
        const table = make('table', {}, make('caption', {}, word('preview')),
            make('thead', {}, make('tr', {}, ...(head ?? []).map((name) => make('th', { scope: 'col' }, name)))),
            make('tbody', {}, ...rows.map((row) =>
                make('tr', {}, ...row.map((field) => make('td', numeric(field) ? { class: 'number' } : {}, field))))));
        const body = table.tBodies[0]!;
        for (let k = 0; k < (head ?? []).length; ++k)
            if ([...body.rows].some((row) => row.cells[k]?.className === 'number'))
                table.tHead!.rows[0]!.cells[k]!.className = 'number';
        element('table-preview').replaceChildren(table);
        element('table-preview').hidden = false;
    }
}
