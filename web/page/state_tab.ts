/** The tab of one state: a pair, two values with units, every property at once. */
import type { Ktl, Letter, PairName, Properties, PropertyRow, State } from 'ktl-steam';
import { copy, element, make, setFault } from './dom.js';
import { meaning, plain, rowOf, shown, symbol, unitText } from './format.js';
import { sentence, term, word, type Word } from './words.js';

interface Shown {
    readonly pair: PairName;
    readonly a: number;
    readonly b: number;
    readonly number: number;
    readonly state: State;
}

/** A state as an address fragment names it: pair=first,second and /number if it is not the first one. */
const address = /^#([a-z]{2})=([^,]+),([^,/]+)(?:\/(\d))?$/;

export class StateTab {
    private readonly pair = element<HTMLSelectElement>('pair');
    private readonly first = element<HTMLInputElement>('first');
    private readonly second = element<HTMLInputElement>('second');
    private readonly atmosphere = element<HTMLInputElement>('atmosphere');
    private shown: Shown | null = null;
    private number = 0;
    /** A sentence about the address that opened the page. */
    private addressFault = '';

    constructor(private readonly ktl: Ktl) {
        for (const name of ['first', 'second', 'atmosphere'])
            element(name).addEventListener('input', () => this.changed());
        this.pair.addEventListener('change', () => this.changePair());
        element('state-form').addEventListener('submit', (event) => event.preventDefault());
        const copies: readonly [string, () => string][] = [
            ['copy-text', () => this.text()],
            ['copy-csv', () => this.csv()],
            ['copy-json', () => this.json()],
            ['copy-link', () => location.href],
        ];
        for (const [id, content] of copies)
            element(id).addEventListener('click', () => void this.copied(content()));
        fillPairs(this.pair, ktl);
        this.pair.value = 'ph';
        [this.first.value, this.second.value] = ['100 bar', '2800 kJ/kg'];
    }

    /** Shows the state of an address fragment; false if it is none at all. */
    open(fragment: string): boolean {
        const match = address.exec(fragment);
        const row = this.ktl.lists.pairs.find((one) => one.name === match?.[1]);
        if (!match || !row) return false;
        const unit = (letter: Letter): string => unitText(rowOf(this.ktl, letter).unit);
        let [a, b] = [match[2]!, match[3]!];
        try {
            [a, b] = [decodeURIComponent(a), decodeURIComponent(b)];
        } catch {
            // The fields show what the address has, and why it is no number.
        }
        const withUnit = (text: string, letter: Letter): string =>
            Number.isFinite(Number(text)) ? `${text} ${unit(letter)}`.trim() : text;
        this.pair.value = row.name;
        this.first.value = withUnit(a, row.first);
        this.second.value = withUnit(b, row.second);
        this.number = Number(match[4] ?? 0);
        this.addressFault = '';
        this.show();
        return true;
    }

    /** Says that an address names nothing. */
    refuseAddress(fragment: string): void {
        this.addressFault = fragment.slice(0, 60);
        this.show();
    }

    private changed(): void {
        this.number = 0;
        this.addressFault = '';
        this.show();
        if (this.shown) history.replaceState(null, '', this.fragment());
    }

    /** The fields keep the state if it has the new values. */
    private changePair(): void {
        const row = this.row();
        const properties = this.shown?.state.properties;
        const text = (letter: Letter): string => {
            const value = properties?.[letter] ?? NaN;
            return Number.isFinite(value) ? `${Number(value.toPrecision(12))} ${unitText(rowOf(this.ktl, letter).unit)}`.trim() : '';
        };
        [this.first.value, this.second.value] = [text(row.first), text(row.second)];
        this.changed();
    }

    private row(): { name: PairName; first: Letter; second: Letter } {
        return this.ktl.lists.pairs.find((one) => one.name === this.pair.value)!;
    }

    fragment(): string {
        if (!this.shown) return '#state';
        const { pair, a, b, number } = this.shown;
        return `#${pair}=${Number(a.toPrecision(15))},${Number(b.toPrecision(15))}${number > 0 ? `/${number}` : ''}`;
    }

    /** The value of a field; the sentence of a fault is shown below it. */
    private read(field: HTMLInputElement, letter: Letter, atmosphere: number): number | null {
        const reading = this.ktl.read(letter, field.value, atmosphere);
        const fault = 'error' in reading ? sentence(reading.error) : '';
        setFault(field, element(`${field.id}-fault`), fault);
        return 'value' in reading ? reading.value : null;
    }

    /** Reads the fields and shows what they determine. */
    show(): void {
        const row = this.row();
        for (const [id, letter] of [['first-label', row.first], ['second-label', row.second]] as const) {
            const property = rowOf(this.ktl, letter);
            const name = meaning(property);
            element(id).replaceChildren(name.charAt(0).toUpperCase() + name.slice(1), make('small', {}, ` ${symbol(letter)}, ${unitText(property.unit)}`));
        }
        const empty = this.atmosphere.value.trim() === '';
        const atmosphere = empty ? -1 : this.read(this.atmosphere, 'p', -1);
        if (empty) setFault(this.atmosphere, element('atmosphere-fault'), '');
        const a = this.read(this.first, row.first, atmosphere ?? -1);
        const b = this.read(this.second, row.second, atmosphere ?? -1);
        if (a === null || b === null) {
            this.shown = null;
            this.tell(this.addressFault ? word('bad_address') + this.addressFault : '', true);
            this.clear();
            return;
        }
        const count = this.ktl.stateCount(row.name, a, b);
        const state = this.ktl.state(row.name, a, b, Math.min(this.number, Math.max(count - 1, 0)));
        this.shown = { pair: row.name, a, b, number: Math.min(this.number, Math.max(count - 1, 0)), state };
        this.tell(
            this.addressFault ? word('bad_address') + this.addressFault : state.status === 'solved' ? '' : sentence(state.sentence),
            true,
        );
        this.showSeveral(count);
        const region = state.properties.region;
        if (region === 7 || Number.isNaN(region)) {
            this.clear();
            return;
        }
        element('state-title').textContent = word(`region_${region}` as Word);
        element('state-region').textContent = word(`sub_region_${region}` as Word);
        element('state-actions').hidden = false;
        element('state-table').replaceChildren(this.table(state, row));
    }

    private tell(message: string, bad: boolean): void {
        const place = element('state-message');
        place.textContent = message;
        place.classList.toggle('bad', bad && message !== '');
    }

    private clear(): void {
        for (const id of ['state-title', 'state-region']) element(id).textContent = '';
        element('state-actions').hidden = true;
        element('state-table').replaceChildren();
        if (!this.shown) element('several').hidden = true;
    }

    private showSeveral(count: number): void {
        const place = element('several');
        place.hidden = count < 2;
        place.replaceChildren();
        if (count < 2) return;
        place.setAttribute('aria-label', `${count} ${word('states_found')}`);
        const current = this.shown!;
        for (let number = 0; number < count; ++number) {
            const { t, p } = this.ktl.state(current.pair, current.a, current.b, number).properties;
            const which = current.pair.startsWith('t') ? `${shown(p, 5)} bar` : `${shown(t, 5)} °C`;
            const button = make(
                'button',
                { type: 'button', 'aria-pressed': String(number === current.number) },
                `${word('state_number')} ${number + 1}: ${which}`,
            );
            button.addEventListener('click', () => {
                this.number = number;
                this.show();
                history.replaceState(null, '', this.fragment());
                (element('several').children[number] as HTMLElement).focus();
            });
            place.append(button);
        }
    }

    /** The properties in the order of reading: what a state is given by first. */
    private rows(): readonly PropertyRow[] {
        return this.ktl.lists.properties.filter((row) => row.name !== 'region');
    }

    private table(state: State, given: { first: Letter; second: Letter }): HTMLTableElement {
        const two = state.liquid !== null && state.vapour !== null;
        const parts: readonly [Word, Properties][] = two
            ? [['mixture', state.properties], ['water', state.liquid], ['steam', state.vapour]]
            : [['value', state.properties]];
        const heads = parts.map(([name]) => make('th', { scope: 'col', class: 'number' }, word(name)));
        const head = make('tr', {}, make('th', { scope: 'col' }, word('property')), make('th', { scope: 'col' }),
            ...heads, make('th', { scope: 'col' }, word('unit')));
        head.children[1]!.setAttribute('aria-hidden', 'true');
        const lines = this.rows()
            .filter((row) => parts.some(([, of]) => !Number.isNaN(of[row.name])))
            .map((row) => {
                const cells = parts.map(([, of]) => numberCell(of[row.name]));
                const line = make('tr', {}, make('th', { scope: 'row' }, meaning(row)), make('td', { class: 'symbol' }, symbol(row.name)),
                    ...cells, make('td', { class: 'unit' }, unitText(row.unit)));
                if (row.name === given.first || row.name === given.second) line.className = 'given';
                return line;
            });
        if (two && !Number.isNaN(state.surfaceTension))
            lines.push(make('tr', {}, make('th', { scope: 'row' }, word('surface_tension')), make('td', { class: 'symbol' }, 'σ'),
                numberCell(state.surfaceTension), make('td'), make('td'), make('td', { class: 'unit' }, 'N/m')));
        return make('table', {}, make('thead', {}, head), make('tbody', {}, ...lines));
    }

    private async copied(text: string): Promise<void> {
        await copy(text);
        element('copied').textContent = word('copied');
        setTimeout(() => (element('copied').textContent = ''), 2000);
    }

    private parts(): readonly [string, Properties][] {
        const { state } = this.shown!;
        return [['mixture', state.properties], ['water', state.liquid], ['steam', state.vapour]].filter(
            (part): part is [string, Properties] => part[1] !== null,
        );
    }

    text(): string {
        const parts = this.parts();
        const lines = this.rows().flatMap((row) => {
            const values = parts.map(([, of]) => plain(of[row.name]).padStart(16));
            return values.every((value) => value.trim() === '') ? [] : [`${term(row.code).padEnd(7)}${values.join('')}  ${row.unit}`];
        });
        return lines.join('\n') + '\n';
    }

    csv(): string {
        const parts = this.parts();
        const lines = this.rows().flatMap((row) => {
            const values = parts.map(([, of]) => plain(of[row.name]));
            return values.every((value) => value === '') ? [] : [`${row.code},${values.join(',')},${row.unit}`];
        });
        const names = parts.length === 1 ? ['value'] : parts.map(([name]) => name);
        return [`property,${names.join(',')},unit`, ...lines].join('\n') + '\n';
    }

    json(): string {
        const numbers = (of: Properties): Record<string, number> =>
            Object.fromEntries(Object.entries(of).filter(([, value]) => Number.isFinite(value)));
        const { pair, a, b, state } = this.shown!;
        return JSON.stringify(
            {
                pair,
                given: [a, b],
                status: state.status,
                ...numbers(state.properties),
                ...(state.liquid && { water: numbers(state.liquid) }),
                ...(state.vapour && { steam: numbers(state.vapour) }),
            },
            null,
            1,
        );
    }
}

/** Digits before and after the decimal mark of equal width, so that the marks of a column are in one line. */
export function numberCell(value: number, digits = 7): HTMLTableCellElement {
    const [whole, ...rest] = shown(value, digits).split(/(?=[.,])/) as [string, ...string[]];
    return make('td', { class: 'number' }, make('span', { class: 'whole' }, whole ?? ''), rest.join(''));
}

/** The name of a given value in a list of pairs, which has little room. */
const short = (ktl: Ktl, letter: Letter): string =>
    meaning(rowOf(ktl, letter)).replace(/^(specific internal|specific|spezifische innere|spezifisches?|vapour) /, '');

/** The pairs with the names of both values. */
export function fillPairs(select: HTMLSelectElement, ktl: Ktl): void {
    const before = select.value;
    select.replaceChildren(
        ...ktl.lists.pairs.map((pair) =>
            make('option', { value: pair.name },
                `${pair.first}, ${pair.second}: ${short(ktl, pair.first)}, ${short(ktl, pair.second)}`),
        ),
    );
    if (before) select.value = before;
}
