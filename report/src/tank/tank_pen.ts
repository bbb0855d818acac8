// Lines and texts that can be read on paper and on coloured water.
import { colour } from '../drawing/colours';

export class Pen {
  private readonly ink: string;
  private readonly edge = 'rgba(255, 255, 255, 0.75)';

  constructor(
    readonly ctx: CanvasRenderingContext2D,
    readonly onPicture: boolean,
  ) {
    this.ink = onPicture ? '#1b1f24' : colour('ink');
  }

  line(places: [number, number][], width: number, dash: number[] = [], strength = 1): void {
    this.path(places);
    this.stroke(width, dash, strength, this.ink);
  }

  cross(x: number, y: number, size: number, ink: string): void {
    this.ctx.beginPath();
    this.ctx.moveTo(x - size, y);
    this.ctx.lineTo(x + size, y);
    this.ctx.moveTo(x, y - size);
    this.ctx.lineTo(x, y + size);
    this.stroke(2, [], 1, ink);
  }

  text(text: string, x: number, y: number, align: CanvasTextAlign, baseline: CanvasTextBaseline): void {
    const { ctx } = this;
    ctx.textAlign = align;
    ctx.textBaseline = baseline;
    ctx.setLineDash([]);
    if (this.onPicture) {
      ctx.lineWidth = 3;
      ctx.lineJoin = 'round';
      ctx.strokeStyle = this.edge;
      ctx.strokeText(text, x, y);
    }
    ctx.fillStyle = this.ink;
    ctx.fillText(text, x, y);
  }

  width(text: string): number {
    return this.ctx.measureText(text).width;
  }

  private path(places: [number, number][]): void {
    this.ctx.beginPath();
    places.forEach(([x, y], i) => (i ? this.ctx.lineTo(x, y) : this.ctx.moveTo(x, y)));
  }

  private stroke(width: number, dash: number[], strength: number, ink: string): void {
    const { ctx } = this;
    ctx.setLineDash(dash);
    if (this.onPicture && !dash.length) {
      ctx.strokeStyle = this.edge;
      ctx.lineWidth = width + 2;
      ctx.stroke();
    }
    ctx.globalAlpha = strength;
    ctx.strokeStyle = ink;
    ctx.lineWidth = width;
    ctx.stroke();
    ctx.globalAlpha = 1;
    ctx.setLineDash([]);
  }
}

export function shortened(text: string, most: number): string {
  const letters = [...text];
  return letters.length > most ? letters.slice(0, most - 1).join('') + '…' : text;
}
