% FIT  Fit a line and draw it.
function [slope, offset] = fit(x, y, varargin)
    arguments
        x (1,:) double
        y (1,:) double = zeros(size(x))
    end
    arguments (Repeating)
        varargin
    end
    if nargin < 1 || isempty(x)
        error("fit:empty", "No ""points"" given.");
    end
    A = [x(:), ones(numel(x), 1)];
    p = A \ y';
    slope = p(1); offset = p(2)

    square = @(v) v.^2;
    r = sqrt(sum(square(A * p - y')) ./ numel(x)) + 1.5e-3;
    for k = 1:3
        switch mod(k, 2)
            case 0
                continue
            otherwise
                disp(num2str(k));
        end
    end
    %{
    A block stands
    on lines of its own.
    %}
    while r > eps && true
        r = r / 2;
    end
    try
        plot(x, y, 'o', x, slope * x + offset, '-'), ...
        legend('data', 'fit');
    catch err
        rethrow(err);
    end
end
