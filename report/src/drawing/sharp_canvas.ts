// A canvas that fills the width of its box, sharp on every screen and on paper.
import { element } from '../page/frame';
import { onPaper } from '../page/printing';
import type { View } from '../page/view';
import { colour } from './colours';

export type Draw = (ctx: CanvasRenderingContext2D, width: number, height: number) => void;

export class SharpCanvas {
  readonly canvas = element('canvas', 'sharp');
  private seen = true; // on the screen or near it
  protected stale = false; // changed while it was not seen

  // `heightFor` gives the height for a width; both and the coordinates of `draw` are CSS pixels.
  // The canvas is drawn again after changes of the view, of the scheme and of its own width.
  constructor(
    private readonly box: HTMLElement,
    view: View,
    private readonly heightFor: (width: number) => number,
    private readonly draw: Draw,
  ) {
    this.canvas.setAttribute('role', 'img');
    box.append(this.canvas);
    view.watch(() => this.update());
    let width = 0;
    new ResizeObserver(() => {
      if (box.clientWidth !== width) this.update();
      width = box.clientWidth;
    }).observe(box);
    const near = new IntersectionObserver(
      (entries) => {
        this.seen = entries[entries.length - 1].isIntersecting;
        if (this.seen && this.stale) this.update();
      },
      { rootMargin: '200px' },
    );
    near.observe(this.canvas);
  }

  get width(): number {
    return this.box.clientWidth;
  }

  get height(): number {
    return this.heightFor(this.width);
  }

  label(text: string): void {
    this.canvas.setAttribute('aria-label', text);
  }

  redraw(): void {
    if (this.width <= 0) return; // not shown
    this.canvas.style.height = `${this.height}px`;
    this.paint(this.canvas, onPaper() ? 3 : Math.max(1, window.devicePixelRatio));
  }

  // Out of sight nothing is drawn, except for paper.
  private update(): void {
    this.stale = !this.seen && !onPaper();
    if (!this.stale) this.redraw();
    else if (this.width > 0) this.canvas.style.height = `${this.height}px`;
  }

  // The same picture on a canvas of its own, to be saved.
  picture(): HTMLCanvasElement {
    const canvas = element('canvas');
    this.paint(canvas, 2);
    return canvas;
  }

  private paint(canvas: HTMLCanvasElement, ratio: number): void {
    const { width, height } = this;
    canvas.width = Math.round(width * ratio);
    canvas.height = Math.round(height * ratio);
    const ctx = canvas.getContext('2d')!;
    ctx.scale(ratio, ratio);
    ctx.fillStyle = colour('paper');
    ctx.fillRect(0, 0, width, height);
    this.draw(ctx, width, height);
  }
}

export function font(size: number, weight = 400): string {
  return `${weight} ${size}px system-ui, -apple-system, 'Segoe UI', Roboto, 'Liberation Sans', Arial, sans-serif`;
}

// Text that stays readable on a picture: with an edge in the colour of the ground.
export function haloText(ctx: CanvasRenderingContext2D, text: string, x: number, y: number, ink: string, ground: string): void {
  ctx.lineJoin = 'round';
  ctx.lineWidth = 3.5;
  ctx.strokeStyle = ground;
  ctx.strokeText(text, x, y);
  ctx.fillStyle = ink;
  ctx.fillText(text, x, y);
}

// A text that is cut where it is longer than a label may be.
export function shortText(text: string, most = 24): string {
  return text.length > most ? text.slice(0, most - 1) + '…' : text;
}
