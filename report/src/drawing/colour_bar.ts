// The legend of a colour scale: a bar with ticks, name and unit.
import { colour, scaleColour, type Scale } from './colours';

export interface ColourBar {
  x: number; // left, top and size of the bar without its texts
  y: number;
  width: number;
  height: number; // higher than wide: the bar stands, with texts on its right, else texts below
  scale: Scale;
  from: number;
  to: number;
  ticks: { value: number; text: string }[];
  title: string; // "surface elevation in mm"
  ink?: string; // colour of texts and frame
}

export function drawColourBar(ctx: CanvasRenderingContext2D, bar: ColourBar): void {
  const stands = bar.height > bar.width;
  const length = stands ? bar.height : bar.width;
  ctx.save();
  for (let i = 0; i < length; ++i) {
    ctx.fillStyle = scaleColour(bar.scale, length > 1 ? i / (length - 1) : 0.5);
    // Each line reaches below the next one, so that the ground does not show between them.
    const size = Math.min(2, length - i);
    if (stands) ctx.fillRect(bar.x, bar.y + bar.height - i - size, bar.width, size);
    else ctx.fillRect(bar.x + i, bar.y, size, bar.height);
  }
  ctx.strokeStyle = ctx.fillStyle = bar.ink ?? colour('ink');
  ctx.lineWidth = 1;
  ctx.strokeRect(bar.x, bar.y, bar.width, bar.height);
  ctx.textAlign = stands ? 'left' : 'center';
  ctx.textBaseline = stands ? 'middle' : 'top';
  ctx.beginPath();
  for (const tick of bar.ticks) {
    const part = (tick.value - bar.from) / (bar.to - bar.from);
    if (!(part >= -1e-9 && part <= 1 + 1e-9)) continue;
    if (stands) {
      const y = bar.y + bar.height * (1 - part);
      line(ctx, bar.x + bar.width, y, bar.x + bar.width + 4, y);
      ctx.fillText(tick.text, bar.x + bar.width + 7, y);
    } else {
      const x = bar.x + bar.width * part;
      line(ctx, x, bar.y + bar.height, x, bar.y + bar.height + 4);
      ctx.fillText(tick.text, x, bar.y + bar.height + 6);
    }
  }
  ctx.stroke();
  drawTitle(ctx, bar, stands);
  ctx.restore();
}

function line(ctx: CanvasRenderingContext2D, x1: number, y1: number, x2: number, y2: number): void {
  ctx.moveTo(x1, y1);
  ctx.lineTo(x2, y2);
}

// Beside the ticks of a standing bar, reading upwards; above a lying one.
function drawTitle(ctx: CanvasRenderingContext2D, bar: ColourBar, stands: boolean): void {
  ctx.textAlign = 'center';
  if (!stands) {
    ctx.textBaseline = 'bottom';
    ctx.fillText(bar.title, bar.x + bar.width / 2, bar.y - 3);
    return;
  }
  const widest = Math.max(0, ...bar.ticks.map((tick) => ctx.measureText(tick.text).width));
  ctx.textBaseline = 'top';
  ctx.translate(bar.x + bar.width + widest + 12, bar.y + bar.height / 2);
  ctx.rotate(-Math.PI / 2);
  ctx.fillText(bar.title, 0, 0);
}
