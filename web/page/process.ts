/** Pinned states, joined in their order to a process. */
import type { Ktl, PropertyName, State } from 'ktl-steam';
import { copy, element, make, setFault } from './dom.js';
import { meaning, plain, rowOf, shown, symbol, unitText } from './format.js';
import { sentence, word } from './words.js';

const columns: readonly PropertyName[] = ['p', 't', 'v', 'h', 's', 'x'];

/** The isentropic efficiency of a step: of an expansion, or the inverse of a compression. NaN if the pressures agree. */
export function efficiency(ktl: Ktl, from: State, to: State): number {
    if (from.properties.p === to.properties.p) return NaN;
    const ideal = ktl.state('ps', to.properties.p, from.properties.s).properties.h - from.properties.h;
    const real = to.properties.h - from.properties.h;
    if (ideal === 0 || ideal > 0 !== real > 0) return NaN;
    return ideal < 0 ? real / ideal : ideal / real;
}

export class Process {
    readonly states: State[] = [];

    constructor(
        private readonly ktl: Ktl,
        private readonly changed: () => void,
    ) {
        element('step-form').addEventListener('submit', (event) => {
            event.preventDefault();
            this.step();
        });
        element('pins-clear').addEventListener('click', () => {
            this.states.length = 0;
            this.show();
        });
        element('pins-copy').addEventListener('click', () => void copy(this.csv()));
    }

    pin(state: State): void {
        this.states.push(state);
        this.show();
    }

    /** Adds the end of an expansion or compression of the last state. */
    private step(): void {
        const field = element<HTMLInputElement>('step-pressure');
        const share = element<HTMLInputElement>('step-efficiency');
        const message = element('step-fault');
        const from = this.states.at(-1);
        setFault(share, message, '');
        setFault(field, message, from ? '' : word('step_no_pin'));
        if (!from) return;
        const pressure = this.ktl.read('p', field.value);
        if ('error' in pressure) return setFault(field, message, sentence(pressure.error));
        const given = this.ktl.read('h', share.value.replace('%', ''));
        const eta = 'value' in given ? given.value / 100 : NaN;
        if (!(eta > 0 && eta <= 1)) return setFault(share, message, word('bad_efficiency'));
        const ideal = this.ktl.state('ps', pressure.value, from.properties.s);
        const drop = ideal.properties.h - from.properties.h;
        const end = this.ktl.state('ph', pressure.value, from.properties.h + (drop < 0 ? drop * eta : drop / eta));
        const bad = ideal.status !== 'solved' ? ideal : end;
        if (bad.status !== 'solved') return setFault(field, message, sentence(bad.sentence));
        this.pin(end);
    }

    /** The table below the chart. */
    show(): void {
        const place = element('pins');
        const any = this.states.length > 0;
        place.hidden = !any;
        element('pin-actions').hidden = !any;
        if (any) place.replaceChildren(this.table());
        this.changed();
    }

    private table(): HTMLElement {
        const number = { class: 'number', scope: 'col' };
        const heads = columns.map((name) => {
            const row = rowOf(this.ktl, name);
            const head = make('th', number, `${symbol(name)}, ${unitText(row.unit)}`);
            head.title = meaning(row);
            return head;
        });
        const rows = this.states.map((state, i) => {
            const from = this.states[i - 1];
            const eta = from ? 100 * efficiency(this.ktl, from, state) : NaN;
            const remove = make('button', { type: 'button', 'aria-label': `${word('pin_remove')} ${i + 1}` }, '×');
            remove.addEventListener('click', () => {
                this.states.splice(i, 1);
                this.show();
            });
            return make('tr', {}, make('th', { scope: 'row' }, String(i + 1)),
                ...columns.map((name) => make('td', { class: 'number' }, shown(state.properties[name], 6))),
                make('td', { class: 'number' }, from ? shown(state.properties.h - from.properties.h, 6) : ''),
                make('td', { class: 'number' }, Number.isNaN(eta) ? '' : shown(eta, 4)), make('td', {}, remove));
        });
        return make('table', {},
            make('thead', {}, make('tr', {}, make('th', { scope: 'col' }, '#'), ...heads, make('th', number, 'Δh, kJ/kg'),
                make('th', number, `${word('efficiency')}, %`), make('td'))),
            make('tbody', {}, ...rows));
    }

    private csv(): string {
        const names = columns.map((name) => `${name}_${rowOf(this.ktl, name).unit}`);
        const rows = this.states.map((state) => columns.map((name) => plain(state.properties[name])).join(','));
        return [names.join(','), ...rows].join('\n') + '\n';
    }
}
