// Draws the polar plot: a disc of energy, and around it the share of each direction.
import { ticks } from '../drawing/axis_ticks';
import { colour, scale, scaleColour, type Scale } from '../drawing/colours';
import { font, haloText } from '../drawing/sharp_canvas';
import type { DirectionEnergy } from './direction_energy';
import { degreesOf, type PolarLayout } from './polar_layout';

const inkOnDisc = '#1b1f24';

// Densities of three decades: below a thousandth of the densest all is as light as no energy.
export const decades = 3;

export function shade(density: number, densest: number): number {
  if (!(density > 0)) return 0;
  return Math.max(0, 1 + Math.log10(density / densest) / decades);
}

export function drawPolar(
  ctx: CanvasRenderingContext2D,
  layout: PolarLayout,
  energy: DirectionEnergy,
  chosen?: { row: number; column: number },
): void {
  const colours = scale('sequential');
  ctx.fillStyle = scaleColour(colours, 0);
  ctx.beginPath();
  ctx.arc(layout.centre, layout.centre, layout.radius, 0, 2 * Math.PI);
  ctx.fill();
  drawCells(ctx, layout, energy, colours);
  drawGrid(ctx, layout);
  drawRing(ctx, layout, energy);
  if (chosen) {
    ctx.strokeStyle = colour('series-2');
    ctx.lineWidth = 2;
    cellPath(ctx, layout, energy, chosen.row, chosen.column, 0);
    ctx.stroke();
  }
}

function drawCells(ctx: CanvasRenderingContext2D, layout: PolarLayout, energy: DirectionEnergy, colours: Scale): void {
  for (let row = 0; row < energy.shown; ++row) {
    for (let column = 0; column + 1 < energy.angle.length; ++column) {
      const part = shade(energy.density[row][column], energy.densest);
      if (part <= 0) continue;
      ctx.fillStyle = scaleColour(colours, part);
      cellPath(ctx, layout, energy, row, column, 0.35);
      ctx.fill();
    }
  }
}

// `more`: how far neighbours overlap in px, so that no seam shows.
function cellPath(
  ctx: CanvasRenderingContext2D,
  layout: PolarLayout,
  { f, angle }: DirectionEnergy,
  row: number,
  column: number,
  more: number,
): void {
  const inner = Math.max(0, layout.radiusOf(f[row]) - more);
  const outer = Math.min(layout.radius, layout.radiusOf(f[row + 1]) + more);
  const turn = more / Math.max(outer, 1);
  const from = layout.screenAngle(angle[column]) + turn;
  const to = layout.screenAngle(angle[column + 1]) - turn;
  ctx.beginPath();
  ctx.arc(layout.centre, layout.centre, outer, from, to, true);
  ctx.arc(layout.centre, layout.centre, inner, to, from, false);
  ctx.closePath();
}

function drawGrid(ctx: CanvasRenderingContext2D, layout: PolarLayout): void {
  const { centre, radius, ring } = layout;
  ctx.save();
  ctx.lineWidth = 1;
  ctx.font = font(11);
  ctx.textBaseline = 'middle';
  for (let degrees = 0; degrees < 360; degrees += 30) {
    const direction = (degrees * Math.PI) / 180;
    ctx.strokeStyle = 'rgba(27, 31, 36, 0.22)';
    ctx.beginPath();
    ctx.moveTo(centre, centre);
    ctx.lineTo(...layout.place(radius, direction));
    ctx.stroke();
    const [x, y] = layout.place(ring[1] + 16, direction);
    ctx.textAlign = 'center';
    ctx.fillStyle = colour('ink');
    ctx.fillText(`${degreesOf(direction, layout.convention).toFixed(0).replace('-', '−')}°`, x, y);
  }
  const { values, label } = ticks(0, layout.highest, 4);
  ctx.textAlign = 'center';
  for (const f of values) {
    if (f === 0) continue;
    ctx.strokeStyle = 'rgba(27, 31, 36, 0.22)';
    ctx.lineWidth = 1;
    ctx.beginPath();
    ctx.arc(centre, centre, layout.radiusOf(f), 0, 2 * Math.PI);
    ctx.stroke();
    haloText(ctx, `${label(f)} Hz`, ...layout.place(layout.radiusOf(f), (-105 * Math.PI) / 180), inkOnDisc, '#ffffff');
  }
  ctx.restore();
}

// The share of each sector as distance from the inner radius of the ring.
function drawRing(ctx: CanvasRenderingContext2D, layout: PolarLayout, { angle, made, asked }: DirectionEnergy): void {
  const [inner, outer] = layout.ring;
  const most = Math.max(...made, ...(asked ?? []), 1e-300);
  ctx.save();
  ctx.strokeStyle = colour('line');
  ctx.lineWidth = 1;
  for (const radius of [inner, outer]) {
    ctx.beginPath();
    ctx.arc(layout.centre, layout.centre, radius, 0, 2 * Math.PI);
    ctx.stroke();
  }
  const least = 1e-3 * most; // less has no line
  const radius = (value: number): number => inner + (value / most) * (outer - inner);
  const { centre } = layout;
  const at = (j: number): number => layout.screenAngle(angle[j]);
  ctx.strokeStyle = ctx.fillStyle = colour('series-1');
  ctx.lineWidth = 1.5;
  made.forEach((value, j) => {
    if (value < least) return;
    ctx.beginPath();
    ctx.arc(centre, centre, radius(value), at(j), at(j + 1), true);
    ctx.arc(centre, centre, inner, at(j + 1), at(j), false);
    ctx.globalAlpha = 0.3;
    ctx.fill();
    ctx.globalAlpha = 1;
    // From the height of the sector before to that of this one.
    const before = made[(j + made.length - 1) % made.length];
    const after = made[(j + 1) % made.length];
    ctx.beginPath();
    ctx.moveTo(...layout.place(radius(before < least ? 0 : before), angle[j]));
    ctx.lineTo(...layout.place(radius(value), angle[j]));
    ctx.arc(centre, centre, radius(value), at(j), at(j + 1), true);
    if (after < least) ctx.lineTo(...layout.place(inner, angle[j + 1]));
    ctx.stroke();
  });
  if (asked) {
    ctx.strokeStyle = colour('series-2');
    ctx.setLineDash([5, 3]);
    ctx.lineWidth = 2;
    ctx.beginPath();
    let drawing = false;
    asked.forEach((value, j) => {
      const place = layout.place(radius(value), (angle[j] + angle[j + 1]) / 2);
      if (drawing) ctx.lineTo(...place);
      else ctx.moveTo(...place);
      drawing = value >= least;
    });
    ctx.stroke();
  }
  ctx.restore();
}
