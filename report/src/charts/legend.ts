// The legend of a chart: switches its lines, and shows their values at the cursor.
import { element } from '../page/frame';
import { lineLook, markLook, type LineChartData, type Look } from './chart_types';

const SVG = 'http://www.w3.org/2000/svg';

export class Legend {
  readonly root = element('div', 'legend');
  private readonly place = element('span', 'legend-place');
  private values: HTMLElement[] = [];

  constructor(private readonly toggled: (index: number) => void) {
    this.root.setAttribute('role', 'group');
    this.root.setAttribute('aria-label', 'Lines of the chart');
  }

  // One button for each line and each kind of mark. A chart with a single line has nothing to switch.
  fill(data: LineChartData, shown: boolean[]): void {
    this.values = [];
    const marks = data.marks ?? [];
    const items = data.lines.map((line, i) => this.item(line.name, swatch(lineLook(i), line.kind), i, shown[i]));
    marks.forEach((mark, i) => {
      const index = data.lines.length + i;
      items.push(this.item(mark.name, swatch(markLook(i)), index, shown[index]));
    });
    this.root.replaceChildren(this.place, ...items);
  }

  // Texts at the cursor: of the x axis, and of each line.
  read(place: string, values: string[]): void {
    if (this.place.textContent !== place) this.place.textContent = place;
    values.forEach((text, i) => {
      const value = this.values[i];
      if (value && value.textContent !== text) value.textContent = text;
    });
  }

  // Screen readers say the values after a key, but not while the mouse moves.
  speak(aloud: boolean): void {
    this.root.setAttribute('aria-live', aloud ? 'polite' : 'off');
  }

  private item(name: string, picture: Element, index: number, shown: boolean): HTMLElement {
    const item = element('button', 'legend-item');
    item.type = 'button';
    item.setAttribute('aria-pressed', String(shown));
    item.addEventListener('click', () => {
      item.setAttribute('aria-pressed', String(item.getAttribute('aria-pressed') !== 'true'));
      this.toggled(index);
    });
    const value = element('span', 'legend-value');
    this.values[index] = value;
    item.append(picture, element('span', 'legend-name', name), value);
    return item;
  }
}

function swatch(look: Look, kind: string = 'line'): Element {
  const picture = document.createElementNS(SVG, 'svg');
  picture.setAttribute('width', '30');
  picture.setAttribute('height', '10');
  picture.setAttribute('aria-hidden', 'true');
  const solid = kind === 'bars' || kind === 'area';
  const shape = document.createElementNS(SVG, solid ? 'rect' : kind === 'dots' ? 'circle' : 'line');
  const place: Record<string, number> = solid
    ? { x: 4, y: 0, width: 22, height: 10 }
    : kind === 'dots'
      ? { cx: 15, cy: 5, r: 4 }
      : { x1: 0, y1: 5, x2: 30, y2: 5, 'stroke-width': 2 };
  for (const [key, value] of Object.entries(place)) shape.setAttribute(key, String(value));
  if (kind === 'line') shape.setAttribute('stroke-dasharray', look.dash.join(' '));
  shape.style.stroke = `var(--${look.colour})`;
  shape.style.fill = kind === 'area' ? 'var(--line)' : `var(--${look.colour})`;
  picture.append(shape);
  return picture;
}
