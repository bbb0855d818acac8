// Arrows on charts.

// From one place of a canvas to another, readable on a picture.
export function drawArrow(
  ctx: CanvasRenderingContext2D,
  from: [number, number],
  to: [number, number],
  style: { ink: string; ground: string; dash?: number[]; width?: number },
): void {
  const angle = Math.atan2(to[1] - from[1], to[0] - from[0]);
  const width = style.width ?? 2.5;
  const head = 4 * width;
  const wing = (turn: number): [number, number] => [
    to[0] - head * Math.cos(angle + turn),
    to[1] - head * Math.sin(angle + turn),
  ];
  const draw = (more: number, ink: string): void => {
    ctx.strokeStyle = ctx.fillStyle = ink;
    ctx.lineWidth = width + more;
    ctx.setLineDash(style.dash ?? []);
    ctx.beginPath();
    ctx.moveTo(...from);
    ctx.lineTo(to[0] - head * 0.7 * Math.cos(angle), to[1] - head * 0.7 * Math.sin(angle));
    ctx.stroke();
    ctx.setLineDash([]);
    ctx.beginPath();
    ctx.moveTo(...to);
    ctx.lineTo(...wing(0.42));
    ctx.lineTo(...wing(-0.42));
    ctx.closePath();
    if (more > 0) {
      ctx.lineWidth = more;
      ctx.lineJoin = 'round';
      ctx.stroke();
    }
    ctx.fill();
  };
  ctx.save();
  draw(3, style.ground);
  draw(0, style.ink);
  ctx.restore();
}
