// Tabs: arrow keys move between them, and only the chosen one is a stop of the Tab key.
import { element } from './frame';

export interface Tab {
  name: string;
  panel: HTMLElement;
}

export function tabs(id: string, label: string, list: Tab[], chosen: (index: number) => void): HTMLElement {
  const bar = element('div', 'tabs');
  bar.setAttribute('role', 'tablist');
  bar.setAttribute('aria-label', label);
  const heads = list.map(({ name, panel }, i) => {
    const head = element('button', '', name);
    head.type = 'button';
    head.id = `${id}-tab-${i}`;
    head.setAttribute('role', 'tab');
    panel.id = `${id}-panel-${i}`;
    panel.setAttribute('role', 'tabpanel');
    panel.setAttribute('aria-labelledby', head.id);
    head.setAttribute('aria-controls', panel.id);
    head.addEventListener('click', () => choose(i));
    return head;
  });

  function choose(index: number): void {
    heads.forEach((head, i) => {
      head.setAttribute('aria-selected', String(i === index));
      head.tabIndex = i === index ? 0 : -1;
      list[i].panel.hidden = i !== index;
    });
    chosen(index);
  }

  bar.addEventListener('keydown', (event) => {
    const now = heads.indexOf(event.target as HTMLButtonElement);
    const next = { ArrowRight: now + 1, ArrowLeft: now - 1, Home: 0, End: heads.length - 1 }[event.key];
    if (now < 0 || next === undefined) return;
    event.preventDefault();
    const index = (next + heads.length) % heads.length;
    choose(index);
    heads[index].focus();
  });
  bar.append(...heads);
  choose(0);
  return bar;
}
