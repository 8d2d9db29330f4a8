/** The page, or in a worker the jobs that it hands over. */
import { compileModule, load, type Ktl } from 'ktl-steam';
import { AcceptanceTab } from './acceptance_tab.js';
import { ChartTab } from './chart_tab.js';
import { element } from './dom.js';
import { Jobs } from './jobs.js';
import { StateTab, fillPairs } from './state_tab.js';
import { TableTab } from './table_tab.js';
import { language, setLanguage, word } from './words.js';
import { serve } from './worker.js';

const tabs = ['state', 'chart', 'table', 'test'] as const;
type Tab = (typeof tabs)[number];

class Page {
    private readonly state: StateTab;
    private readonly chart: ChartTab;
    private readonly table: TableTab;
    private readonly test: AcceptanceTab;
    private tab: Tab = 'state';

    constructor(
        private readonly ktl: Ktl,
        module: WebAssembly.Module,
    ) {
        const jobs = (): Jobs => new Jobs(module);
        this.state = new StateTab(ktl);
        this.chart = new ChartTab(ktl, jobs);
        this.table = new TableTab(ktl, jobs);
        this.test = new AcceptanceTab(ktl);
        element('version').textContent = `ktl ${ktl.lists.version}`;
        this.listen();
        this.setTheme(matchMedia('(prefers-color-scheme: dark)').matches);
        this.speak(navigator.language.startsWith('de') ? 'de' : 'en');
        this.open(location.hash);
    }

    private listen(): void {
        for (const tab of tabs) {
            const button = element(`tab-${tab}`);
            button.addEventListener('click', () => this.choose(tab));
            button.addEventListener('keydown', (event) => {
                const step = event.key === 'ArrowRight' ? 1 : event.key === 'ArrowLeft' ? tabs.length - 1 : 0;
                if (step === 0) return;
                const next = tabs[(tabs.indexOf(tab) + step) % tabs.length]!;
                this.choose(next);
                element(`tab-${next}`).focus();
            });
        }
        element('language').addEventListener('click', () => this.speak(language() === 'en' ? 'de' : 'en'));
        element('theme').addEventListener('click', () => this.setTheme(document.documentElement.dataset['theme'] !== 'dark'));
        window.addEventListener('hashchange', () => this.open(location.hash));
    }

    private choose(tab: Tab): void {
        this.show(tab);
        history.replaceState(null, '', tab === 'state' ? this.state.fragment() : `#${tab}`);
    }

    private show(tab: Tab): void {
        this.tab = tab;
        for (const one of tabs) {
            const selected = one === tab;
            element(one).hidden = !selected;
            element(`tab-${one}`).setAttribute('aria-selected', String(selected));
            element(`tab-${one}`).tabIndex = selected ? 0 : -1;
        }
        if (tab === 'chart') this.chart.appear();
    }

    /** Shows what an address fragment names: a tab, or a state. */
    private open(fragment: string): void {
        const tab = tabs.find((one) => fragment === `#${one}`);
        this.show(tab ?? 'state');
        if (tab || fragment === '' || fragment === '#') this.state.show();
        else if (!this.state.open(fragment)) this.state.refuseAddress(fragment);
    }

    private speak(to: 'en' | 'de'): void {
        setLanguage(to);
        const button = element('language');
        button.textContent = to === 'en' ? 'DE' : 'EN';
        button.lang = to === 'en' ? 'de' : 'en';
        button.setAttribute('aria-label', to === 'en' ? 'DE, Deutsch' : 'EN, English');
        for (const id of ['pair', 'table-pair']) fillPairs(element<HTMLSelectElement>(id), this.ktl);
        this.state.show();
        this.chart.speak();
        this.table.speak();
        this.test.speak();
    }

    private setTheme(dark: boolean): void {
        document.documentElement.dataset['theme'] = dark ? 'dark' : 'light';
        element('theme').setAttribute('aria-pressed', String(dark));
        if (this.tab === 'chart') this.chart.redraw();
    }
}

async function start(): Promise<void> {
    try {
        const module = await compileModule();
        new Page(await load(module), module);
        document.documentElement.dataset['ready'] = 'yes';
    } catch (fault) {
        setLanguage('en');
        element('failure').textContent = word('failed') + String(fault);
        element('failure').hidden = false;
    }
}

if (typeof document === 'undefined') serve();
else void start();
