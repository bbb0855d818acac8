// The legend beside the polar plot.
import { plainNumber } from '../drawing/axis_ticks';
import { drawColourBar } from '../drawing/colour_bar';
import { colour, scale } from '../drawing/colours';
import { font } from '../drawing/sharp_canvas';
import { decades } from './polar_drawing';

// `x`, `y`: the left and the top. `height` is that of the colour bar.
export function drawPolarLegend(
  ctx: CanvasRenderingContext2D,
  densest: number,
  asked: boolean,
  x: number,
  y: number,
  height: number,
): void {
  ctx.save();
  ctx.font = font(11);
  // Powers of ten, up to the densest.
  const top = Math.log10(densest);
  const marks = Array.from({ length: decades + 1 }, (_, i) => Math.floor(top) - i).filter((power) => power >= top - decades);
  drawColourBar(ctx, {
    x,
    y,
    width: 11,
    height,
    scale: scale('sequential'),
    from: top - decades,
    to: top,
    ticks: marks.map((value) => ({ value, text: plainNumber(10 ** value) })),
    title: 'variance density in mm²/(Hz deg)',
  });
  key(ctx, x, y + height + 24, 'series-1', 'made', []);
  if (asked) key(ctx, x, y + height + 42, 'series-2', 'asked', [5, 3]);
  ctx.restore();
}

function key(ctx: CanvasRenderingContext2D, x: number, y: number, name: string, text: string, dash: number[]): void {
  ctx.strokeStyle = colour(name);
  ctx.lineWidth = 2;
  ctx.setLineDash(dash);
  ctx.beginPath();
  ctx.moveTo(x, y);
  ctx.lineTo(x + 24, y);
  ctx.stroke();
  ctx.setLineDash([]);
  ctx.fillStyle = colour('ink');
  ctx.textAlign = 'left';
  ctx.textBaseline = 'middle';
  ctx.fillText(text, x + 30, y);
}
