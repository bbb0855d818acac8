// Axes of the plan in metres, and its scale bar.
import { roundStep, ticks } from '../drawing/axis_ticks';
import { colour } from '../drawing/colours';
import { font } from '../drawing/sharp_canvas';
import type { Extent, Fit } from './tank_extent';

// Room that the axes take outside of the drawing.
export const margins = { left: 52, right: 16, top: 8, bottom: 40 };

export function drawAxes(ctx: CanvasRenderingContext2D, extent: Extent, fit: Fit): void {
  ctx.save();
  ctx.font = font(11);
  ctx.fillStyle = ctx.strokeStyle = colour('faint');
  ctx.lineWidth = 1;
  const bottom = fit.y + fit.height + 6;
  const left = fit.x - 6;
  const across = ticks(...extent.x, Math.max(2, fit.width / 60));
  const up = ticks(...extent.y, Math.max(2, Math.min(8, fit.height / 30)));
  ctx.textAlign = 'center';
  ctx.textBaseline = 'top';
  ctx.beginPath();
  for (const x of across.values) {
    const px = Math.round(fit.place(x, 0)[0]) + 0.5;
    ctx.moveTo(px, bottom);
    ctx.lineTo(px, bottom + 4);
    ctx.fillText(across.label(x), px, bottom + 7);
  }
  ctx.textAlign = 'right';
  ctx.textBaseline = 'middle';
  for (const y of up.values) {
    const py = Math.round(fit.place(0, y)[1]) + 0.5;
    ctx.moveTo(left - 4, py);
    ctx.lineTo(left, py);
    ctx.fillText(up.label(y), left - 7, py);
  }
  ctx.stroke();
  ctx.fillStyle = colour('ink');
  ctx.textAlign = 'center';
  ctx.textBaseline = 'top';
  ctx.fillText('x in m', fit.x + fit.width / 2, bottom + 20);
  ctx.translate(left - 38, fit.y + fit.height / 2);
  ctx.rotate(-Math.PI / 2);
  ctx.textBaseline = 'middle';
  ctx.fillText('y in m', 0, 0);
  ctx.restore();
}

// A bar of round length, at the left of the line `y`. Returns where it ends.
export function drawScaleBar(ctx: CanvasRenderingContext2D, fit: Fit, x: number, y: number): number {
  const metres = roundStep(60 / fit.perMetre);
  const length = metres * fit.perMetre;
  const text = metres < 1 ? `${Math.round(metres * 1000)} mm` : `${metres} m`;
  const label = fit.stretch > 1.001 ? `${text} along x` : text;
  ctx.save();
  ctx.strokeStyle = ctx.fillStyle = colour('ink');
  ctx.lineWidth = 2;
  ctx.beginPath();
  ctx.moveTo(x, y - 4);
  ctx.lineTo(x, y);
  ctx.lineTo(x + length, y);
  ctx.lineTo(x + length, y - 4);
  ctx.stroke();
  ctx.font = font(11);
  ctx.textAlign = 'left';
  ctx.textBaseline = 'middle';
  ctx.fillText(label, x + length + 6, y - 2);
  const end = x + length + 6 + ctx.measureText(label).width;
  ctx.restore();
  return end;
}
