// A line chart: uPlot with legend, keys, links to other charts, and pictures for PNG and print.
import uPlot from 'uplot';
import { csvTable } from '../data/csv_table';
import { minus, plainNumber } from '../drawing/axis_ticks';
import { button, element, type ChartFrame } from '../page/frame';
import type { View } from '../page/view';
import { alignedData } from './aligned';
import { KEYS, stretchKeys } from './chart_keys';
import { chartOptions } from './chart_options';
import { chartPicture } from './chart_picture';
import { palette, printing, schemeKey, type LineChartData } from './chart_types';
import './charts.css';
import { Legend } from './legend';
import { valueAt } from './line_value';
import { reset } from './stretch';

const NEAR = 10; // pixels from the mouse to a sample that stands alone

export class LineChart {
  readonly root = element('div', 'line-chart');
  private readonly host = element('div', 'line-chart-host');
  private readonly cursor = element('div', 'chart-mark');
  private readonly legend = new Legend((index) => this.toggle(index));
  private plot?: uPlot;
  private aligned: uPlot.AlignedData = [[]];
  private shown: boolean[] = [];
  private drawn = '';
  private printed?: HTMLCanvasElement;
  private visible = false;
  onDraw?: (plot: uPlot) => void;

  constructor(
    view: View,
    private data: LineChartData,
  ) {
    this.host.tabIndex = 0;
    this.host.setAttribute('role', 'application');
    this.host.setAttribute('aria-roledescription', 'chart');
    this.root.append(this.host, element('p', 'chart-hint', KEYS), this.legend.root);
    stretchKeys(this.host, () => {
      // Keys move the mark: its values are shown, and said, instead of those under the mouse.
      this.plot?.setCursor({ left: -10, top: -10 });
      this.legend.speak(true);
      return this.data.stretch;
    });
    this.pointer();
    this.set(data);
    new ResizeObserver(() => this.refresh()).observe(this.host);
    new IntersectionObserver(
      (entries) => {
        this.visible = entries[entries.length - 1].isIntersecting;
        this.refresh();
      },
      { rootMargin: '300px' },
    ).observe(this.root);
    view.watch(() => this.refresh());
  }

  // Shows something else. Lines of the same place in the list stay switched on or off.
  set(data: LineChartData): void {
    const same = this.shown.length === data.lines.length + (data.marks?.length ?? 0);
    if (!same) this.shown = [...data.lines, ...(data.marks ?? [])].map((item) => item.shown ?? true);
    this.data = data;
    this.aligned = alignedData(data);
    this.drawn = '';
    this.host.setAttribute('aria-label', `${data.title}. ${KEYS}`);
    this.legend.fill(data, this.shown);
    this.refresh();
  }

  addReset(frame: ChartFrame): this {
    frame.tools.prepend(
      button('Reset', 'Show all of it again (double click or Escape)', () => reset(this.data.stretch)),
    );
    return this;
  }

  // The chart on white ground, with its legend.
  picture(titled = true): HTMLCanvasElement {
    return chartPicture(this.data, this.aligned, this.shown, titled ? 1000 : 720, titled);
  }

  csv(): string {
    const { x, y, lines } = this.data;
    const columns = lines.map((line, i) => ({ name: line.name, unit: y.unit, values: this.aligned[i + 1] }));
    return csvTable([{ name: x.name, unit: x.unit, values: this.aligned[0] }, ...columns]);
  }

  private toggle(index: number): void {
    this.shown[index] = !this.shown[index];
    this.drawn = '';
    this.refresh();
  }

  // Brings the picture up to date with the view, at little cost if nothing changed.
  private refresh(): void {
    if (printing()) {
      if (!this.printed) this.root.append((this.printed = this.picture(false)));
      return;
    }
    this.printed?.remove();
    this.printed = undefined;
    const width = this.host.clientWidth;
    if (!this.visible || width === 0) return;
    const { stretch } = this.data;
    const fresh = `${width} ${schemeKey()}`;
    if (this.drawn !== fresh) {
      this.build(width);
      this.drawn = fresh;
    } else if (this.plot!.scales.x.min !== stretch.from || this.plot!.scales.x.max !== stretch.to) {
      this.plot!.setScale('x', { min: stretch.from, max: stretch.to });
    }
    this.moveCursor();
    this.read();
  }

  private build(width: number): void {
    this.plot?.destroy();
    const height = this.data.height ?? 260;
    const options = chartOptions(this.data, { width, height, scale: 1, palette: palette(), shown: this.shown });
    options.cursor!.bind = { dblclick: () => () => (reset(this.data.stretch), null) };
    const hooks = options.hooks!;
    hooks.setSelect = [(plot) => this.zoomTo(plot)];
    hooks.setCursor = [() => this.read()];
    hooks.draw!.push((plot) => (this.moveCursor(), this.onDraw?.(plot)));
    this.plot = new uPlot(options, this.aligned, this.host);
    this.plot.over.append(this.cursor);
  }

  private zoomTo(plot: uPlot): void {
    const { left, width } = plot.select;
    if (width > 0) {
      this.data.stretch.show(plot.posToVal(left, 'x'), plot.posToVal(left + width, 'x'));
      plot.setSelect({ left: 0, top: 0, width: 0, height: 0 }, false);
    }
  }

  // A click marks a place; the end of a drag is no click, and a double click leaves the mark alone.
  private pointer(): void {
    let down = NaN;
    let before = NaN;
    this.host.addEventListener('mousedown', (event) => (down = event.clientX));
    this.host.addEventListener('mousemove', () => this.legend.speak(false));
    this.host.addEventListener('click', (event) => {
      if (!this.plot || Math.abs(event.clientX - down) > 3 || !this.plot.over.contains(event.target as Node)) return;
      if (event.detail > 1) return this.data.stretch.mark(before);
      before = this.data.stretch.at;
      const box = this.plot.over.getBoundingClientRect();
      this.data.stretch.mark(this.plot.posToVal(event.clientX - box.left, 'x'));
    });
  }

  private moveCursor(): void {
    const { from, to, at } = this.data.stretch;
    const inside = at >= from && at <= to && this.plot !== undefined;
    this.cursor.hidden = !inside;
    if (inside) this.cursor.style.transform = `translateX(${this.plot!.valToPos(at, 'x').toFixed(1)}px)`;
  }

  // Values under the mouse, or else at the mark.
  private read(): void {
    const { x, y, lines, stretch } = this.data;
    const { plot } = this;
    if (!plot) return;
    const hovers = (plot.cursor.left ?? -1) >= 0;
    const at = hovers ? plot.posToVal(plot.cursor.left!, 'x') : stretch.at;
    if (Number.isNaN(at))
      return this.legend.read(
        '',
        lines.map(() => ''),
      );
    const reach = (NEAR * (stretch.to - stretch.from)) / Math.max(1, plot.over.clientWidth);
    const values = lines.map((line) => {
      const value = valueAt(line, x.values, at, reach);
      return Number.isFinite(value) ? `${plainNumber(value)} ${y.unit}` : '–';
    });
    const digits = Math.max(0, Math.min(6, 3 - Math.floor(Math.log10(stretch.to - stretch.from))));
    this.legend.read(`${x.name} ${x.text?.(Math.round(at)) ?? minus(at.toFixed(digits))} ${x.unit}`.trim(), values);
  }
}
