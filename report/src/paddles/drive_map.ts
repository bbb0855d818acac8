// The heat map of a bank: hover, choice of paddle and time, zoom, and its pictures.
import { KEYS, stretchKeys } from '../charts/chart_keys';
import { palette, paperPalette, printing, schemeKey } from '../charts/chart_types';
import { dragZoom } from '../charts/drag_zoom';
import { reset, TimeStretch } from '../charts/stretch';
import { scale } from '../drawing/colours';
import { element } from '../page/frame';
import type { View } from '../page/view';
import { bounds, excursion, paddleName, rowOf, type BankData } from './bank_data';
import { drawMap, mapBox, type MapBox } from './map_picture';

export class DriveMap {
  readonly root = element('div', 'map');
  private readonly host = element('div', 'map-host');
  private readonly canvas = element('canvas');
  private readonly time = element('div', 'chart-mark');
  private readonly chosen = element('div', 'map-paddle');
  private readonly readout = element('p', 'readout');
  private readonly stretch: TimeStretch;
  private box: MapBox;
  private drawn = '';
  private printed?: HTMLCanvasElement;
  private hover?: { row: number; time: number };

  constructor(
    private readonly bank: BankData,
    private readonly view: View,
    label: string,
  ) {
    this.stretch = new TimeStretch(view);
    this.box = mapBox(bank, 600);
    this.host.tabIndex = 0;
    this.host.setAttribute('role', 'application');
    this.host.setAttribute('aria-roledescription', 'heat map');
    this.host.setAttribute('aria-label', `${label}. ${KEYS} Up and down choose the paddle.`);
    this.host.append(this.canvas, this.chosen, this.time);
    this.root.append(this.host, element('p', 'chart-hint', `${KEYS} Up and down choose the paddle.`), this.readout);
    stretchKeys(
      this.host,
      () => this.stretch,
      (key) => (this.readout.setAttribute('aria-live', 'polite'), this.paddleKey(key)),
    );
    let before = {};
    dragZoom(this.host, {
      inside: (x) => Math.min(Math.max(x, this.box.left), this.box.left + this.box.width),
      zoom: (left, right) => this.stretch.show(this.timeAt(left), this.timeAt(right)),
      click: (x, y) => {
        before = { time: this.view.time, bank: this.view.bank, paddle: this.view.paddle };
        this.view.set({ time: this.timeAt(x), bank: bank.of.bank, paddle: bank.of.paddles[this.rowAt(y)] });
      },
      undo: () => this.view.set(before),
      hover: (x, y) => this.point(x, y),
      reset: () => reset(this.stretch),
    });
    new ResizeObserver(() => this.refresh()).observe(this.host);
    view.watch(() => this.refresh());
  }

  // On white ground, in grey if it is for print.
  picture(title: string): HTMLCanvasElement {
    const width = title ? 1000 : 720;
    const box = mapBox(this.bank, width);
    const head = title ? 30 : 0;
    const canvas = document.createElement('canvas');
    canvas.className = 'print-picture';
    canvas.width = 2 * width;
    canvas.height = 2 * (box.all + head);
    const ctx = canvas.getContext('2d')!;
    ctx.scale(2, 2);
    ctx.fillStyle = '#ffffff';
    ctx.fillRect(0, 0, width, box.all + head);
    const look = { palette: paperPalette(), scale: scale(this.view.grey ? 'grey' : 'diverging'), ratio: 2 };
    if (title) {
      ctx.fillStyle = look.palette.ink;
      ctx.font = "600 15px system-ui, 'Liberation Sans', Arial, sans-serif";
      ctx.fillText(title, 12, 20, width - 24);
      ctx.translate(0, head);
    }
    drawMap(ctx, this.bank, box, this.view.from, this.view.to, look);
    return canvas;
  }

  private refresh(): void {
    if (printing()) {
      if (!this.printed) this.root.append((this.printed = this.picture('')));
      return;
    }
    this.printed?.remove();
    this.printed = undefined;
    const width = this.host.clientWidth;
    if (width === 0) return;
    const { from, to, grey } = this.view;
    const ratio = window.devicePixelRatio || 1;
    const fresh = [width, from, to, grey, ratio, schemeKey()].join(' ');
    if (fresh !== this.drawn) {
      this.drawn = fresh;
      this.box = mapBox(this.bank, width);
      this.canvas.width = Math.round(width * ratio);
      this.canvas.height = Math.round(this.box.all * ratio);
      this.canvas.style.height = `${this.box.all}px`;
      const ctx = this.canvas.getContext('2d')!;
      ctx.scale(ratio, ratio);
      drawMap(ctx, this.bank, this.box, from, to, {
        palette: palette(),
        scale: scale(grey ? 'grey' : 'diverging'),
        ratio,
      });
    }
    this.moveMarks();
    this.read();
  }

  private moveMarks(): void {
    const { box, view, bank } = this;
    const inside = view.time >= view.from && view.time <= view.to;
    this.time.hidden = !inside;
    if (inside) {
      const x = box.left + ((view.time - view.from) / (view.to - view.from)) * box.width;
      this.time.style.transform = `translate(${x.toFixed(1)}px, ${box.top}px)`;
      this.time.style.height = `${box.height}px`;
    }
    this.chosen.hidden = view.bank !== bank.of.bank;
    if (this.chosen.hidden) return;
    const tall = box.height / bank.of.paddles.length;
    const y = box.top + box.height - (this.row() + 1) * tall;
    this.chosen.classList.toggle('thin', tall < 6);
    Object.assign(this.chosen.style, {
      left: `${box.left}px`,
      top: `${y.toFixed(1)}px`,
      width: `${box.width}px`,
      height: `${Math.max(1, tall).toFixed(1)}px`,
    });
  }

  private row(): number {
    return rowOf(this.bank, this.view.paddle);
  }

  private timeAt(x: number): number {
    const part = Math.min(Math.max((x - this.box.left) / this.box.width, 0), 1);
    return this.view.from + part * (this.view.to - this.view.from);
  }

  private rowAt(y: number): number {
    const rows = this.bank.of.paddles.length;
    return Math.min(Math.max(Math.floor(((this.box.top + this.box.height - y) / this.box.height) * rows), 0), rows - 1);
  }

  private paddleKey(key: string): boolean {
    const step = { ArrowUp: 1, ArrowDown: -1 }[key];
    if (!step) return false;
    const { paddles, bank } = this.bank.of;
    const row = Math.min(Math.max(this.row() + step, 0), paddles.length - 1);
    this.view.set({ bank, paddle: paddles[row] });
    return true;
  }

  private point(x: number, y: number): void {
    const { left, top, width, height } = this.box;
    const inside = x >= left && x <= left + width && y >= top && y <= top + height;
    this.hover = inside ? { row: this.rowAt(y), time: this.timeAt(x) } : undefined;
    this.readout.setAttribute('aria-live', 'off');
    this.read();
  }

  // Under the mouse, or else at the marks.
  private read(): void {
    const { bank } = this;
    const row = this.hover?.row ?? this.row();
    const time = this.hover?.time ?? this.view.time;
    const sample = Math.min(Math.max(Math.round(time * bank.of.rate), 0), bank.samples - 1);
    const value = bank.samples > 0 ? bank.signals.at(row * bank.samples + sample) : NaN;
    const [low, high] = bounds(bank);
    // A signal that is held at its limit may lie a step beyond by rounding.
    const { step } = bank.signals;
    const beyond = value > high + step || value < low - step ? ', beyond the limit' : '';
    const text = Number.isNaN(value) ? 'NaN' : excursion(bank, value) + beyond;
    this.readout.textContent = `${paddleName(bank, bank.of.paddles[row])}; time ${time.toFixed(2)} s; ${text}`;
  }
}
